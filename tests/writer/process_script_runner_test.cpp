// SPDX-License-Identifier: MIT
#include "privileged_writer.h"
#include "process_script_runner.h"

#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace {

// A stand-in for the administrator runner: /bin/sh running `behaviour`, with the delivered
// text as $1.
ProcessScriptRunner standIn(const QString& behaviour,
                            std::optional<ProcessScriptRunner::PromptStatuses> prompt = {}) {
    return ProcessScriptRunner(QStringLiteral("/bin/sh"),
                               {QStringLiteral("-c"), behaviour, QStringLiteral("stand-in")},
                               ProcessScriptRunner::Delivery::LastArgument, {}, prompt);
}

struct Run {
    std::optional<ScriptRunner::Outcome> outcome;
    int calls = 0;
    bool completedBeforeReturning = false;
};

// Runs to completion, recording how the completion came.
Run runToEnd(ScriptRunner& runner, const std::string& text, const std::string& expected = {}) {
    Run run;
    runner.run(WriteRequest{text, expected}, [&](ScriptRunner::Outcome o) {
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
        const std::string message = std::get<ScriptRunner::NotStarted>(*run.outcome).message;
        QVERIFY2(message.find("/nonexistent/runner is missing") == 0, message.c_str());
        QVERIFY(message.find("apt install pkexec") != std::string::npos);
    }

    // The helper's data: sizes as arguments, the loaded and the new text on standard input. While
    // the prompt waits, another program of the same user tries to add to that input through
    // /proc, as it could to a pipe; the input is sealed, so the helper reads exactly the data.
    void helperInputIsSealedWhileThePromptWaits() {
        QTemporaryDir dir;
        const QString behaviour = QStringLiteral(
            "echo $$ > \"$0/pid\"; while [ ! -e \"$0/go\" ]; do sleep 0.02; done; "
            "printf '%s %s %s %s|' \"$1\" \"$2\" \"$3\" \"$4\" >&2; cat >&2; exit 3");
        ProcessScriptRunner runner(QStringLiteral("/bin/sh"),
                                   {QStringLiteral("-c"), behaviour, dir.path()},
                                   ProcessScriptRunner::Delivery::HelperInput);
        std::optional<ScriptRunner::Outcome> outcome;
        runner.run(WriteRequest{"new\nline", "old"},
                   [&](ScriptRunner::Outcome o) { outcome = std::move(o); });
        QFile pidFile(dir.filePath(QStringLiteral("pid")));
        QTRY_VERIFY(pidFile.size() > 0);
        QVERIFY(pidFile.open(QIODevice::ReadOnly));
        const QByteArray input = "/proc/" + pidFile.readAll().trimmed() + "/fd/0";
        const int fd = ::open(input.constData(), O_WRONLY | O_APPEND);
        const bool appended = fd >= 0 && ::write(fd, "\nrm -rf /\n", 10) > 0;
        if (fd >= 0)
            ::close(fd);
        QVERIFY(!appended);
        QFile(dir.filePath(QStringLiteral("go"))).open(QIODevice::WriteOnly);
        QTRY_VERIFY(outcome.has_value());
        QCOMPARE(std::get<ScriptRunner::Failed>(*outcome).message,
                 std::string("--expected-size 3 --size 8|oldnew\nline"));
    }

    void aDismissedPromptCarriesTheCancelMarker() {
        ProcessScriptRunner runner = standIn(QStringLiteral("echo 'Not authorized' >&2; exit 126"),
                                             ProcessScriptRunner::pkexecStatuses);
        const std::string message = failedMessage(runToEnd(runner, "script"));
        QVERIFY(message.find("-128") != std::string::npos);
        // pkexec's refusal gets one plain line; any other failure keeps the runner's own text.
        ProcessScriptRunner refused = standIn(
            QStringLiteral("printf 'Error executing command as another user: Not authorized\\n\\n"
                           "This incident has been reported.\\n' >&2; exit 127"),
            ProcessScriptRunner::pkexecStatuses);
        QCOMPARE(failedMessage(runToEnd(refused, "script")),
                 std::string("Not authorized to update the hosts file."));
        ProcessScriptRunner other = standIn(QStringLiteral("echo 'Disk full' >&2; exit 5"),
                                            ProcessScriptRunner::pkexecStatuses);
        QCOMPARE(failedMessage(runToEnd(other, "script")), std::string("Disk full"));
    }

    void tooLargeATextNeverRuns() {
        ProcessScriptRunner runner = standIn(QStringLiteral("touch \"$1.ran\"; exit 0"));
        std::optional<std::optional<PrivilegedWriter::WriteFailure>> result;
        PrivilegedWriter::writeHostsFile(std::string(200'000, 'a'), {}, runner,
                                         [&](auto failure) { result = failure; });
        QTRY_VERIFY(result.has_value());
        QVERIFY(result->has_value());
        QCOMPARE((*result)->message,
                 std::string("The hosts file is unexpectedly large. Refusing to write."));
    }
};

QTEST_GUILESS_MAIN(ProcessScriptRunnerTest)
#include "process_script_runner_test.moc"
