// SPDX-License-Identifier: MIT
// pinecovectl in-process, on a hosts file of the test's own with the fake administrator runner:
// what each command writes, says and returns.
#include "ctl.h"
#include "hosts_fixture.h"

#include <QDir>
#include <QTest>

namespace {

const std::string sample = "127.0.0.1\tlocalhost\n"
                           "# dev\n"
                           "127.0.0.1 Api.test\n"
                           "#10.0.0.5 staging.test # off for now\n";

// Runs one command line; returns its status and everything it said.
std::pair<int, QString> run(HostsFixture& hosts, const QString& line) {
    HostsStore::Environment environment = hosts.environment();
    environment.clock = nullptr; // pinecovectl's own, which never reuses a backup's name
    QString said;
    QTextStream out(&said), err(&said);
    const int status = runPinecovectl(line.split(QLatin1Char(' ')), environment, out, err);
    return {status, said};
}

} // namespace

class PinecovectlTest : public QObject {
    Q_OBJECT

private slots:
    void commands() {
        const QString conflict = QString::fromUtf8(PrivilegedWriter::conflictMessage.data());
        struct Case {
            QString line;
            QString runnerSays; // a failure of the write, if any
            int status;
            QString said;
            std::string file; // the hosts file afterwards, when it changed
        };
        const Case cases[] = {
            {"add 10.0.0.7 web.test api.TEST", "", 0, "+10.0.0.7\tweb.test",
             sample + "\n10.0.0.7\tweb.test\n"},
            {"add api.test", "", 0, "Nothing to do", ""},
            {"add 10.0.0.7 bad!name", "", 1, "is not a mapping", ""},
            {"off API.test", "", 0, "+# 127.0.0.1 Api.test",
             "127.0.0.1\tlocalhost\n# dev\n# 127.0.0.1 Api.test\n#10.0.0.5 staging.test # off for "
             "now\n"},
            {"on staging.test api.test", "", 0, "+10.0.0.5 staging.test",
             "127.0.0.1\tlocalhost\n# dev\n127.0.0.1 Api.test\n10.0.0.5 staging.test # off for "
             "now\n"},
            {"remove staging.test api.test", "", 0, "-127.0.0.1 Api.test",
             "127.0.0.1\tlocalhost\n# dev\n"},
            {"remove api.test --dry-run", "", 0, "-127.0.0.1 Api.test", ""},
            {"remove api.test --quiet", "", 0, "Wrote /etc/hosts",
             "127.0.0.1\tlocalhost\n# dev\n#10.0.0.5 staging.test # off for now\n"},
            {"off localhost", "", 1, "system's own", ""},
            {"remove nothing.test", "", 1, "No entry has", ""},
            {"frob", "", 2, "unknown command", ""},
            {"list --dry-run", "", 2, "does not take", ""},
            {"off", "", 2, "wrong number", ""},
            {"list", "", 0, "on   127.0.0.1  Api.test\noff  10.0.0.5   staging.test\n", ""},
            {"list --all --json", "", 0,
             R"({"enabled":true,"hostnames":["localhost"],"ip":"127.0.0.1","system":true})", ""},
            {"restore --help", "", 0, "pinecovectl restore [BACKUP]", ""},
            {"add new.test", conflict, 1, conflict, ""},
            {"add new.test", "Request dismissed (-128)", 1, "Cancelled.", ""},
        };
        for (const auto& [line, runnerSays, status, said, file] : cases) {
            HostsFixture hosts(sample);
            if (!runnerSays.isEmpty())
                hosts.runner->outcome = ScriptRunner::Failed{runnerSays.toStdString()};
            const auto [returned, output] = run(hosts, line);
            QVERIFY2(returned == status && output.contains(said), qPrintable(line + ": " + output));
            QCOMPARE(hosts.read(), file.empty() ? sample : file);
            QCOMPARE(hosts.backupCount(), file.empty() && runnerSays.isEmpty() ? 0 : 1);
        }
    }
};

QTEST_GUILESS_MAIN(PinecovectlTest)
#include "pinecovectl_test.moc"
