// SPDX-License-Identifier: MIT
// The real apply, end to end: the store, the platform runner and the root script replace the
// real path /etc/hosts. It runs as root inside a private mount namespace where a temporary
// folder is bound over /etc, so the machine's own file is never touched.

#include "hosts_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <iostream>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinecove;

namespace {

const std::string original = "##\n# Host Database\n##\n127.0.0.1\tlocalhost\n"
                             "10.0.0.5 staging.test # off for now\n"
                             "#127.0.0.1 blocked.test\n"
                             "# \"quotes\" $HOME `id` \\ and caf\u00e9\n";

std::string readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString()
                                          : std::string("<unreadable>");
}

void writeFile(const QString& path, const std::string& bytes) {
    QFile file(path);
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

// Inside the namespace: each check that fails prints why, and the exit status counts them.
int failures = 0;
void check(bool ok, const std::string& what) {
    if (!ok) {
        std::cout << "FAILED: " << what << std::endl;
        ++failures;
    }
}

bool applyAndWait(HostsStore& store) {
    QSignalSpy finished(&store, &HostsStore::applyFinished);
    store.apply();
    return finished.count() == 1 || finished.wait(20000);
}

int runInsideNamespace(const QString& backups) {
    const QString hosts = QStringLiteral("/etc/hosts");
    writeFile(hosts, original);

    HostsStore::Environment environment; // the real hosts path and the real runner
    environment.backupsFolder = [backups] {
        return backups;
    };
    // Several applies follow within a second here; a backup name is per second.
    // Each store copies the environment, so the clock's time is shared.
    environment.clock = [tick = std::make_shared<QDateTime>(QDateTime::currentDateTime())] {
        return *tick = tick->addSecs(1);
    };
    HostsStore store(environment);
    check(!store.hasError(), "the real /etc/hosts loads");
    store.toggle(store.customOrder().idAt(0)); // staging.test, before the add sorts ahead of it
    check(store.add("127.0.0.1", {"myapp.test"}), "add myapp.test");
    const std::string expected = store.serialized();
    check(applyAndWait(store), "the apply finishes");

    check(store.lastErrorText().isEmpty(), "no error, got: " + store.lastErrorText().toStdString());
    check(readFile(hosts) == expected,
          "/etc/hosts holds the edited text, got:\n" + readFile(hosts));
    check(expected.ends_with("\n127.0.0.1\tmyapp.test\n"), "the new line ends the file");
    struct stat info {};
    check(::stat("/etc/hosts", &info) == 0 && (info.st_mode & 07777) == 0644, "mode 644");
    check(info.st_uid == 0 && info.st_gid == 0, "owned by root:root");
    const QStringList backupNames = QDir(backups).entryList(QDir::Files);
    check(backupNames.size() == 1 && backupNames.front().startsWith(QStringLiteral("hosts_")),
          "one backup");
    if (!backupNames.isEmpty())
        check(readFile(backups + QLatin1Char('/') + backupNames.front()) == original,
              "the backup holds the old bytes");
    check(QDir(QStringLiteral("/etc")).entryList({QStringLiteral("hosts.pinecove.*")}).isEmpty(),
          "no temporary file left in /etc");
    check(!store.isDirty() && !store.isApplying(), "the store is clean again");

    // Another writer changes the file after the load: the apply must refuse it.
    HostsStore second(environment);
    second.add("127.0.0.1", {"conflict.test"});
    const std::string outside = expected + "# written by another app\n";
    writeFile(hosts, outside);
    second.apply(); // refused at once, before anything runs
    check(second.lastErrorText() == HostsStore::conflictMessage, "the conflict message is shown");
    check(readFile(hosts) == outside, "the other app's text is kept");
    check(QDir(backups).entryList(QDir::Files).size() == 1, "no backup for a refused apply");

    // Another program writes while the password prompt is open: the helper, as root, finds the
    // file changed since the load and keeps that change.
    struct ChangeDuringPrompt : ScriptRunner {
        std::shared_ptr<ScriptRunner> real = platformScriptRunner();
        std::string outside;
        void run(const WriteRequest& request, std::function<void(Outcome)> done) override {
            writeFile(QStringLiteral("/etc/hosts"), outside);
            real->run(request, std::move(done));
        }
    };
    auto duringPrompt = std::make_shared<ChangeDuringPrompt>();
    duringPrompt->outside = outside + "# written while the prompt was open\n";
    HostsStore::Environment racing = environment;
    racing.runner = duringPrompt;
    HostsStore third(racing);
    third.add("127.0.0.1", {"race.test"});
    check(applyAndWait(third), "the racing apply finishes");
    check(third.lastErrorText() == HostsStore::conflictMessage,
          "the helper refuses a file changed during the prompt, got: " +
              third.lastErrorText().toStdString());
    check(readFile(hosts) == duringPrompt->outside, "the change made during the prompt is kept");

    // Block lists: 2,000 mappings are written; 200,000 (5.9 MB) stop at the size limit.
    const auto applyBlockList = [&](const char* source) {
        writeFile(hosts, readFile(QString::fromLocal8Bit(source)));
        HostsStore blockList(environment);
        blockList.toggle(blockList.customOrder().idAt(0));
        const std::string text = blockList.serialized();
        check(applyAndWait(blockList), std::string("the apply of ") + source + " finishes");
        return std::pair{text, blockList.lastErrorText()};
    };
    const auto [smallText, smallError] = applyBlockList(PINECOVE_HOSTS_2000);
    check(smallError.isEmpty() && readFile(hosts) == smallText,
          "a 2,000-mapping file is written, got: " + smallError.toStdString());
    const QString largeError = applyBlockList(PINECOVE_HOSTS_200000).second;
    check(largeError == QStringLiteral("The hosts file is unexpectedly large. Refusing to write."),
          "a 200,000-mapping file is refused, got: " + largeError.toStdString());
    check(readFile(hosts) == readFile(QStringLiteral(PINECOVE_HOSTS_200000)),
          "the refused file stays as it was");
    return failures;
}

} // namespace

class ApplyEndToEndTest : public QObject {
    Q_OBJECT

private slots:
    void appliesToTheRealPathInAPrivateNamespace() {
        QTemporaryDir etc, backups;
        QVERIFY(etc.isValid() && backups.isValid());
        // What the script's tools need of /etc: chown resolves root through these.
        for (const char* name : {"passwd", "group", "nsswitch.conf"})
            QFile::copy(QStringLiteral("/etc/") + QLatin1String(name),
                        etc.filePath(QLatin1String(name)));
        QProcess inside;
        inside.setProcessChannelMode(QProcess::MergedChannels);
        inside.start(
            QStringLiteral("unshare"),
            {QStringLiteral("--mount"), QStringLiteral("--propagation"), QStringLiteral("private"),
             QStringLiteral("--"), QStringLiteral("/bin/sh"), QStringLiteral("-c"),
             QStringLiteral("mount --bind \"$1\" /etc && exec \"$2\" --inside-namespace \"$3\""),
             QStringLiteral("sh"), etc.path(), QCoreApplication::applicationFilePath(),
             backups.path()});
        QVERIFY(inside.waitForFinished(60000));
        const QByteArray output = inside.readAll();
        QVERIFY2(inside.exitCode() == 0, output.constData());
        QVERIFY(readFile(QStringLiteral("/etc/hosts")) !=
                original); // the machine's file was not touched
    }
};

// Why the test cannot run here, or nothing.
std::optional<std::string> unavailableBecause() {
    if (::geteuid() != 0)
        return "the end-to-end apply needs root (run the suite as root to include it)";
    QProcess probe;
    probe.start(QStringLiteral("unshare"),
                {QStringLiteral("--mount"), QStringLiteral("--propagation"),
                 QStringLiteral("private"), QStringLiteral("true")});
    if (!probe.waitForFinished(10000) || probe.exitStatus() != QProcess::NormalExit ||
        probe.exitCode() != 0)
        return "private mount namespaces are unavailable here, so the end-to-end apply cannot run "
               "without touching the real /etc/hosts";
    return std::nullopt;
}

constexpr int skippedStatus = 77; // CTest reports this status as a skip, never as a pass

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    if (argc == 3 && std::string_view(argv[1]) == "--inside-namespace")
        return runInsideNamespace(QString::fromLocal8Bit(argv[2]));
    if (const auto reason = unavailableBecause()) {
        std::cout << "SKIPPED: " << *reason << std::endl;
        return skippedStatus;
    }
    ApplyEndToEndTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "apply_end_to_end_test.moc"
