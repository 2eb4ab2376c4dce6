// SPDX-License-Identifier: MIT
// The real apply, end to end: the store, the platform runner and the helper replace the real path
// /etc/hosts. apply_end_to_end_test.sh runs it as root in a private mount namespace where a
// temporary folder is bound over /etc, so the machine's own file is never touched.

#include "hosts_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <iostream>
#include <sys/stat.h>

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

    return failures;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::cout << "Usage: apply_end_to_end_test BACKUPS-FOLDER (as root, /etc private)\n";
        return 2;
    }
    const int failed = runInsideNamespace(QString::fromLocal8Bit(argv[1]));
    std::cout << (failed ? "" : "the apply wrote /etc/hosts and kept every outside change\n");
    return failed == 0 ? 0 : 1;
}
