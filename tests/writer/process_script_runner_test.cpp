#include "privileged_writer.h"
#include "process_script_runner.h"

#include <QStandardPaths>
#include <QTest>
#include <optional>

namespace {

// A stand-in for the administrator runner: /bin/sh running `behaviour`, with the delivered
// text as $1.
ProcessScriptRunner standIn(const QString& behaviour, std::optional<int> dismissed = std::nullopt) {
    return ProcessScriptRunner(QStringLiteral("/bin/sh"),
                               {QStringLiteral("-c"), behaviour, QStringLiteral("stand-in")},
                               ProcessScriptRunner::Delivery::LastArgument, {}, dismissed);
}

struct Run {
    std::optional<ScriptRunner::Outcome> outcome;
    int calls = 0;
    bool completedBeforeReturning = false;
};

// Runs to completion, recording how the completion came.
Run runToEnd(ScriptRunner& runner, const std::string& script) {
    Run run;
    runner.run(script, [&](ScriptRunner::Outcome o) {
        run.outcome = std::move(o);
        ++run.calls;
    });
    run.completedBeforeReturning = run.outcome.has_value();
    (void)QTest::qWaitFor([&] { return run.outcome.has_value(); }, 10000);
    QTest::qWait(50); // a second completion would have arrived by now
    return run;
}

// The one outcome of a well-behaved run.
ScriptRunner::Outcome outcomeOf(const Run& run) {
    if (run.calls != 1 || run.completedBeforeReturning || !run.outcome)
        return ScriptRunner::NotStarted{"completed " + std::to_string(run.calls) + " times"};
    return *run.outcome;
}

std::string failedMessage(const Run& run) {
    const ScriptRunner::Outcome outcome = outcomeOf(run);
    const auto* failed = std::get_if<ScriptRunner::Failed>(&outcome);
    return failed ? failed->message : std::string("<not a failure>");
}

} // namespace

class ProcessScriptRunnerTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void readsTheOutcome_data() {
        QTest::addColumn<QString>("behaviour");
        QTest::addColumn<bool>("succeeds");
        QTest::addColumn<QString>("message");
        QTest::newRow("status 0 with text on stderr")
            << "echo 'ignored' >&2; exit 0" << true << QString();
        QTest::newRow("status 1 with only a line feed")
            << "printf '\\n' >&2; exit 1" << false << "Writing the hosts file failed.";
        QTest::newRow("status 1 with nothing")
            << "exit 1" << false << "Writing the hosts file failed.";
        QTest::newRow("trimmed text")
            << "printf '  some error\\n' >&2; exit 1" << false << "some error";
        QTest::newRow("not UTF-8") << "printf 'bad \\377\\376\\n' >&2; exit 1" << false
                                   << "Writing the hosts file failed.";
        QTest::newRow("a cancelled dialog")
            << "echo 'execution error: User canceled. (-128)' >&2; exit 1" << false
            << "execution error: User canceled. (-128)";
        QTest::newRow("killed by a signal")
            << "kill -9 $$" << false << "Writing the hosts file failed.";
        QTest::newRow("the text arrives as one argument")
            << "printf '%s' \"$1\" >&2; exit 2" << false << "a \"q\" \\ $x `y`";
    }

    void readsTheOutcome() {
        QFETCH(QString, behaviour);
        QFETCH(bool, succeeds);
        QFETCH(QString, message);
        ProcessScriptRunner runner = standIn(behaviour);
        const Run run = runToEnd(runner, "a \"q\" \\ $x `y`");
        QCOMPARE(run.calls, 1);
        QVERIFY(!run.completedBeforeReturning);
        const auto outcome = outcomeOf(run);
        QCOMPARE(std::holds_alternative<ScriptRunner::Succeeded>(outcome), succeeds);
        if (!succeeds)
            QCOMPARE(QString::fromStdString(failedMessage(run)), message);
    }

    void aRunnerThatCannotStartIsNotAWriteError() {
        ProcessScriptRunner runner(QStringLiteral("/nonexistent/runner"), {},
                                   ProcessScriptRunner::Delivery::LastArgument);
        const Run run = runToEnd(runner, "script");
        QCOMPARE(run.calls, 1);
        QVERIFY(!run.completedBeforeReturning);
        QVERIFY(std::holds_alternative<ScriptRunner::NotStarted>(*run.outcome));
        QVERIFY(!std::get<ScriptRunner::NotStarted>(*run.outcome).message.empty());
    }

    void scriptsCanArriveOnStandardInput() {
        ProcessScriptRunner runner(QStringLiteral("/bin/sh"),
                                   {QStringLiteral("-c"), QStringLiteral("cat >&2; exit 3")},
                                   ProcessScriptRunner::Delivery::StandardInput);
        QCOMPARE(failedMessage(runToEnd(runner, "line one\nline two")),
                 std::string("line one\nline two"));
    }

    void aDismissedPromptCarriesTheCancelMarker() {
        ProcessScriptRunner runner =
            standIn(QStringLiteral("echo 'Not authorized' >&2; exit 126"), 126);
        const std::string message = failedMessage(runToEnd(runner, "script"));
        QVERIFY(message.find("-128") != std::string::npos);
        // Any other failure keeps the runner's own text.
        ProcessScriptRunner other =
            standIn(QStringLiteral("echo 'Not authorized' >&2; exit 127"), 126);
        QCOMPARE(failedMessage(runToEnd(other, "script")), std::string("Not authorized"));
    }

    void tooLargeATextNeverRuns() {
        ProcessScriptRunner runner = standIn(QStringLiteral("touch \"$1.ran\"; exit 0"));
        std::optional<std::optional<PrivilegedWriter::WriteFailure>> result;
        PrivilegedWriter::writeHostsFile(std::string(200'000, 'a'), runner,
                                         [&](auto failure) { result = failure; });
        QTRY_VERIFY(result.has_value());
        QVERIFY(result->has_value());
        QCOMPARE((*result)->message,
                 std::string("The hosts file is unexpectedly large. Refusing to write."));
    }
};

QTEST_GUILESS_MAIN(ProcessScriptRunnerTest)
#include "process_script_runner_test.moc"
