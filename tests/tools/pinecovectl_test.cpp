// SPDX-License-Identifier: MIT
// pinecovectl in-process, on a hosts file of the test's own with the fake administrator runner:
// what each command writes, says and returns, and that the panel's store gives the same bytes.
#include "ctl.h"
#include "hosts_fixture.h"
#include "panel_store.h"

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
    void commands_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("runnerSays"); // a failure of the write, if any
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("said");
        QTest::addColumn<QString>("file"); // the hosts file afterwards, when it changed
        QTest::newRow("add") << "add 10.0.0.7 web.test api.TEST"
                             << "" << 0 << "+10.0.0.7\tweb.test"
                             << QString::fromStdString(sample + "\n10.0.0.7\tweb.test\n");
        QTest::newRow("add, every name taken") << "add api.test"
                                               << "" << 0 << "Nothing to do"
                                               << "";
        QTest::newRow("add, not a mapping") << "add 10.0.0.7 bad!name"
                                            << "" << 1 << "is not a mapping"
                                            << "";
        QTest::newRow("off") << "off API.test"
                             << "" << 0 << "+# 127.0.0.1 Api.test"
                             << "127.0.0.1\tlocalhost\n# dev\n# 127.0.0.1 Api.test\n#10.0.0.5 "
                                "staging.test # off for now\n";
        QTest::newRow("on, one already on") << "on staging.test api.test"
                                            << "" << 0 << "+10.0.0.5 staging.test"
                                            << "127.0.0.1\tlocalhost\n# dev\n127.0.0.1 "
                                               "Api.test\n10.0.0.5 staging.test # off for now\n";
        QTest::newRow("remove") << "remove staging.test api.test"
                                << "" << 0 << "-127.0.0.1 Api.test"
                                << "127.0.0.1\tlocalhost\n# dev\n";
        QTest::newRow("dry run") << "remove api.test --dry-run"
                                 << "" << 0 << "-127.0.0.1 Api.test"
                                 << "";
        QTest::newRow("quiet")
            << "remove api.test --quiet"
            << "" << 0 << "Wrote /etc/hosts"
            << "127.0.0.1\tlocalhost\n# dev\n#10.0.0.5 staging.test # off for now\n";
        QTest::newRow("system entry") << "off localhost"
                                      << "" << 1 << "system's own"
                                      << "";
        QTest::newRow("unknown name") << "remove nothing.test"
                                      << "" << 1 << "No entry has"
                                      << "";
        QTest::newRow("unknown command") << "frob"
                                         << "" << 2 << "unknown command"
                                         << "";
        QTest::newRow("option of another command") << "list --dry-run"
                                                   << "" << 2 << "does not take"
                                                   << "";
        QTest::newRow("no operands") << "off"
                                     << "" << 2 << "wrong number"
                                     << "";
        QTest::newRow("list") << "list"
                              << "" << 0
                              << "on   127.0.0.1  Api.test\noff  10.0.0.5   staging.test\n"
                              << "";
        QTest::newRow("list --all --json")
            << "list --all --json"
            << "" << 0
            << R"({"enabled":true,"hostnames":["localhost"],"ip":"127.0.0.1","system":true})"
            << "";
        QTest::newRow("help for one command") << "restore --help"
                                              << "" << 0 << "pinecovectl restore [BACKUP]"
                                              << "";
        QTest::newRow("changed during the prompt")
            << "add new.test" << QString::fromUtf8(PrivilegedWriter::conflictMessage.data()) << 1
            << "changed by another app"
            << "";
        QTest::newRow("dismissed prompt") << "add new.test"
                                          << "Request dismissed (-128)" << 1 << "Cancelled."
                                          << "";
    }
    void commands() {
        QFETCH(QString, line);
        QFETCH(QString, runnerSays);
        QFETCH(int, status);
        QFETCH(QString, said);
        QFETCH(QString, file);
        HostsFixture hosts(sample);
        if (!runnerSays.isEmpty())
            hosts.runner->outcome = ScriptRunner::Failed{runnerSays.toStdString()};
        const auto [returned, output] = run(hosts, line);
        QCOMPARE(returned, status);
        QVERIFY2(output.contains(said), qPrintable(output));
        QCOMPARE(QString::fromStdString(hosts.read()),
                 file.isEmpty() ? QString::fromStdString(sample) : file);
        QCOMPARE(hosts.backupCount(), file.isEmpty() && runnerSays.isEmpty() ? 0 : 1);
    }

    void restoreWritesTheBackupByteForByte() {
        HostsFixture hosts(sample);
        QCOMPARE(run(hosts, "add one.test").first, 0);
        QCOMPARE(run(hosts, "add two.test").first, 0); // the same second
        QCOMPARE(run(hosts, "backups").second.count(QStringLiteral("hosts_")), 2);
        QCOMPARE(run(hosts, "restore").first, 0);
        QCOMPARE(hosts.read(), sample + "\n127.0.0.1\tone.test\n");
        QCOMPARE(hosts.backupCount(), 3);
    }

    // The panel and pinecovectl make the same edits through the same store.
    void thePanelWritesTheSameBytes() {
        HostsFixture byCtl(sample), byPanel(sample);
        run(byCtl, "add 10.0.0.9 b.test a.test");
        run(byCtl, "off api.test");
        const auto store = byPanel.store();
        PanelStore panel(store.get());
        QVERIFY(panel.add(QStringLiteral("10.0.0.9 b.test a.test")));
        for (const auto& entry : store->customEntries())
            if (entry.ip() == "127.0.0.1")
                panel.toggle(QString::fromStdString(entry.id().toString()));
        store->apply();
        QTRY_VERIFY(!store->isApplying());
        QCOMPARE(byCtl.read(), byPanel.read());
    }
};

QTEST_GUILESS_MAIN(PinecovectlTest)
#include "pinecovectl_test.moc"
