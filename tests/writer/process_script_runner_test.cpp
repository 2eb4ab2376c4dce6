// SPDX-License-Identifier: MIT
#include "process_script_runner.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// What a run came to, as one line: "ok", "failed: …" or "not started: …". A run that completes
// before run() returns, or more than once, says so instead.
QString runToEnd(ScriptRunner& runner, const WriteRequest& request) {
    // Shared with the callback: a run that outlives the wait must not write into a gone frame.
    const auto outcomes = std::make_shared<QStringList>();
    runner.run(request, [outcomes](ScriptRunner::Outcome outcome) {
        if (const auto* failed = std::get_if<ScriptRunner::Failed>(&outcome))
            *outcomes << "failed: " + QString::fromStdString(failed->message);
        else if (const auto* notStarted = std::get_if<ScriptRunner::NotStarted>(&outcome))
            *outcomes << "not started: " + QString::fromStdString(notStarted->message);
        else
            *outcomes << QStringLiteral("ok");
    });
    if (!outcomes->isEmpty())
        return QStringLiteral("completed before returning");
    (void)QTest::qWaitFor([&] { return !outcomes->isEmpty(); }, 10000);
    // QProcess reports an error and the end of one process in the same event: a second
    // completion is queued by now.
    QCoreApplication::processEvents();
    return outcomes->join(QStringLiteral(" and "));
}

} // namespace

class ProcessScriptRunnerTest : public QObject {
    Q_OBJECT

private slots:
    // /bin/sh stands in for the runner, with the delivered text as $1; with pkexec's statuses
    // for a dismissed or refused prompt where told.
    void readsTheOutcome_data() {
        QTest::addColumn<QString>("behaviour");
        QTest::addColumn<bool>("pkexec");
        QTest::addColumn<QString>("outcome");
        const QString fallback = QStringLiteral("failed: Writing the hosts file failed.");
        const auto row = [](const char* name, const char* behaviour, bool pkexec,
                            const QString& outcome) {
            QTest::newRow(name) << QString::fromUtf8(behaviour) << pkexec << outcome;
        };
        row("success", "echo 'ignored' >&2; exit 0", false, "ok");
        row("no words", "printf '\\n' >&2; exit 1", false, fallback);
        row("trimmed words", "printf '  some error\\n' >&2; exit 1", false, "failed: some error");
        row("not UTF-8", "printf 'bad \\377\\376\\n' >&2; exit 1", false, fallback);
        row("killed", "kill -9 $$", false, fallback);
        row("text as given", "printf '%s' \"$1\" >&2; exit 2", false, "failed: a \"q\" \\ $x `y`");
        row("dismissed", "echo 'Not authorized' >&2; exit 126", true,
            "failed: The administrator prompt was dismissed. (-128)");
        row("refused",
            "printf 'Error executing command as another user\\n\\nreported\\n' >&2; exit 127", true,
            "failed: Not authorized to update the hosts file.");
        row("no agent",
            "printf 'Error executing command as another user: No authentication agent "
            "found.\n' >&2; exit 127",
            true, "failed: " + QString::fromUtf8(HelperProtocol::noAgentMessage));
        row("helper's words", "echo 'Disk full' >&2; exit 5", true, "failed: Disk full");
    }
    void readsTheOutcome() {
        QFETCH(QString, behaviour);
        QFETCH(bool, pkexec);
        QFETCH(QString, outcome);
        ProcessScriptRunner runner(
            QStringLiteral("/bin/sh"), {QStringLiteral("-c"), behaviour, QStringLiteral("sh")},
            ProcessScriptRunner::Delivery::LastArgument, {},
            pkexec ? std::optional(HelperProtocol::pkexecStatuses) : std::nullopt);
        QCOMPARE(runToEnd(runner, WriteRequest{"a \"q\" \\ $x `y`", {}}), outcome);
    }
    void aMissingProgramIsNotStarted() {
        ProcessScriptRunner missing(QStringLiteral("/nonexistent/pkexec"), {},
                                    ProcessScriptRunner::Delivery::LastArgument);
        QVERIFY(runToEnd(missing, {}).startsWith("not started: /nonexistent/pkexec is missing"));
    }

    // The file that runs as root must be root's alone, and so must every folder above it, or
    // whoever can change it runs their own program as root behind the prompt.
    void runsAsRootOnlyWhatRootAloneCanChange_data() {
        QTest::addColumn<int>("fileMode");
        QTest::addColumn<int>("folderMode");
        QTest::addColumn<bool>("ownedByRoot");
        QTest::addColumn<QString>("outcome");
        QTest::newRow("root's, 755") << 0755 << 0755 << true << "ok";
        QTest::newRow("in a sticky folder") << 0755 << 01777 << true << "ok";
        QTest::newRow("group may write")
            << 0775 << 0755 << true << "users other than root can change it.";
        QTest::newRow("anyone may write")
            << 0757 << 0755 << true << "users other than root can change it.";
        QTest::newRow("folder open to all")
            << 0755 << 0777 << true << "users other than root can change its folder";
        QTest::newRow("another user's") << 0755 << 0755 << false << "it is not owned by root.";
        QTest::newRow("missing") << 0 << 0755 << true << "it is missing.";
    }
    void runsAsRootOnlyWhatRootAloneCanChange() {
        if (::geteuid() != 0)
            QSKIP("needs root, to own the file as root does");
        QFETCH(int, fileMode);
        QFETCH(int, folderMode);
        QFETCH(bool, ownedByRoot);
        QFETCH(QString, outcome);
        QTemporaryDir dir;
        const QString folder = dir.filePath(QStringLiteral("libexec"));
        const QString helper = folder + QStringLiteral("/helper");
        QVERIFY(QDir().mkdir(folder));
        if (fileMode != 0) {
            QVERIFY(QFile::copy(QStringLiteral("/bin/true"), helper));
            QCOMPARE(::chmod(QFile::encodeName(helper).constData(), static_cast<mode_t>(fileMode)),
                     0);
            QCOMPARE(::chown(QFile::encodeName(helper).constData(), ownedByRoot ? 0 : 65534, 0), 0);
        }
        QCOMPARE(::chmod(QFile::encodeName(folder).constData(), static_cast<mode_t>(folderMode)),
                 0);
        ProcessScriptRunner runner(helper, {}, ProcessScriptRunner::Delivery::LastArgument, {},
                                   std::nullopt, helper);
        const QString result = runToEnd(runner, {});
        const QString refused = QStringLiteral("not started: Pinecove will not run ") + helper;
        QVERIFY2(outcome == "ok" ? result == outcome
                                 : result.startsWith(refused) && result.contains(outcome),
                 qPrintable(result));
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
        const auto outcome = std::make_shared<std::string>();
        runner.run(WriteRequest{"new\nline", "old"}, [outcome](ScriptRunner::Outcome o) {
            *outcome = std::get<ScriptRunner::Failed>(o).message;
        });
        QFile pidFile(dir.filePath(QStringLiteral("pid")));
        QTRY_VERIFY(pidFile.size() > 0);
        QVERIFY(pidFile.open(QIODevice::ReadOnly));
        const QByteArray input = "/proc/" + pidFile.readAll().trimmed() + "/fd/0";
        const int fd = ::open(input.constData(), O_WRONLY | O_APPEND);
        QVERIFY(fd < 0 || ::write(fd, "\nrm -rf /\n", 10) <= 0);
        if (fd >= 0)
            ::close(fd);
        QFile(dir.filePath(QStringLiteral("go"))).open(QIODevice::WriteOnly);
        QTRY_COMPARE(*outcome, "--expected-size 3 --size 8|oldnew\nline");
    }
};

QTEST_GUILESS_MAIN(ProcessScriptRunnerTest)
#include "process_script_runner_test.moc"
