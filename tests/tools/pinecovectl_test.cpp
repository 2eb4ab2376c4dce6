// SPDX-License-Identifier: MIT
// pinecovectl in-process, on a temporary hosts file with the fake administrator runner: what each
// command writes, says and returns, and that the panel's store gives the same bytes.

#include "ctl.h"
#include "fake_script_runner.h"
#include "panel_store.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray sample = "127.0.0.1\tlocalhost\n"
                          "# dev\n"
                          "127.0.0.1 Api.test\n"
                          "#10.0.0.5 staging.test # off for now\n";

struct Run {
    int status;
    QString out, err;
    QByteArray file;
};

class Scene {
    QTemporaryDir dir_; // first: the other members use its path

public:
    explicit Scene(const QByteArray& text) {
        QFile file(hosts());
        file.open(QIODevice::WriteOnly);
        file.write(text);
    }
    QString hosts() const { return dir_.filePath(QStringLiteral("hosts")); }
    QString backups() const { return dir_.filePath(QStringLiteral("backups")); }
    HostsStore::Environment environment() {
        HostsStore::Environment environment;
        environment.hostsPath = hosts();
        environment.backupsFolder = [folder = backups()] {
            return folder;
        };
        environment.runner = runner;
        return environment;
    }
    Run run(const QString& line) {
        QString out, err;
        QTextStream outStream(&out), errStream(&err);
        const int status =
            runPinecovectl(line.split(QLatin1Char(' ')), environment(), outStream, errStream);
        QFile file(hosts());
        file.open(QIODevice::ReadOnly);
        return {status, out, err, file.readAll()};
    }
    std::shared_ptr<FakeScriptRunner> runner = std::make_shared<FakeScriptRunner>(hosts());
};

} // namespace

class PinecovectlTest : public QObject {
    Q_OBJECT

private slots:
    void commands_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("said"); // on standard output or error
        QTest::addColumn<QByteArray>("file");
        const QByteArray same = sample;
        QTest::newRow("add") << "add 10.0.0.7 web.test api.TEST" << 0 << "+10.0.0.7\tweb.test"
                             << sample + "\n10.0.0.7\tweb.test\n"; // after the last, empty line
        QTest::newRow("add, every name taken") << "add api.test" << 0 << "Nothing to do" << same;
        QTest::newRow("add, not a mapping")
            << "add 10.0.0.7 bad!name" << 1 << "is not a mapping" << same;
        QTest::newRow("off") << "off API.test" << 0 << "+# 127.0.0.1 Api.test"
                             << QByteArray("127.0.0.1\tlocalhost\n# dev\n# 127.0.0.1 Api.test\n"
                                           "#10.0.0.5 staging.test # off for now\n");
        QTest::newRow("on") << "on staging.test" << 0 << "+10.0.0.5 staging.test # off for now"
                            << QByteArray("127.0.0.1\tlocalhost\n# dev\n127.0.0.1 Api.test\n"
                                          "10.0.0.5 staging.test # off for now\n");
        QTest::newRow("on, already on") << "on api.test" << 0 << "Nothing to do" << same;
        QTest::newRow("remove") << "remove staging.test api.test" << 0 << "-127.0.0.1 Api.test"
                                << QByteArray("127.0.0.1\tlocalhost\n# dev\n");
        QTest::newRow("dry run") << "remove api.test --dry-run" << 0 << "-127.0.0.1 Api.test"
                                 << same;
        QTest::newRow("quiet") << "off api.test --quiet" << 0 << "Wrote /etc/hosts"
                               << QByteArray("127.0.0.1\tlocalhost\n# dev\n# 127.0.0.1 Api.test\n"
                                             "#10.0.0.5 staging.test # off for now\n");
        QTest::newRow("system entry") << "off localhost" << 1 << "system's own" << same;
        QTest::newRow("unknown name") << "remove nothing.test" << 1 << "No entry has" << same;
        QTest::newRow("unknown command") << "frob" << 2 << "unknown command" << same;
        QTest::newRow("option of another command")
            << "list --dry-run" << 2 << "does not take" << same;
        QTest::newRow("no operands") << "off" << 2 << "wrong number" << same;
        QTest::newRow("list") << "list" << 0
                              << "on   127.0.0.1  Api.test\n"
                                 "off  10.0.0.5   staging.test\n"
                              << same;
        QTest::newRow("list --all --json")
            << "list --all --json" << 0
            << R"({"enabled":true,"hostnames":["localhost"],"ip":"127.0.0.1","system":true})"
            << same;
        QTest::newRow("help for one command")
            << "restore --help" << 0 << "pinecovectl restore [BACKUP]" << same;
    }

    void commands() {
        QFETCH(QString, line);
        QFETCH(int, status);
        QFETCH(QString, said);
        QFETCH(QByteArray, file);
        Scene scene(sample);
        const Run run = scene.run(line);
        QCOMPARE(run.status, status);
        QVERIFY2((run.out + run.err).contains(said), qPrintable(run.out + run.err));
        QCOMPARE(run.file, file);
        const bool wrote = run.file != sample;
        QCOMPARE(QDir(scene.backups()).entryList(QDir::Files).size(), wrote ? 1 : 0);
    }

    // The store's own messages reach standard error; a dismissed prompt is "Cancelled.".
    void failuresOfTheWrite_data() {
        QTest::addColumn<QString>("runnerSays");
        QTest::addColumn<QString>("said");
        QTest::newRow("changed during the prompt")
            << QString::fromUtf8(PrivilegedWriter::conflictMessage.data())
            << "changed by another app";
        QTest::newRow("dismissed prompt") << "Request dismissed (-128)"
                                          << "Cancelled.";
    }

    void failuresOfTheWrite() {
        QFETCH(QString, runnerSays);
        QFETCH(QString, said);
        Scene scene(sample);
        scene.runner->outcome = ScriptRunner::Failed{runnerSays.toStdString()};
        const Run run = scene.run(QStringLiteral("add new.test"));
        QCOMPARE(run.status, 1);
        QCOMPARE(run.err.trimmed(),
                 said.startsWith(QLatin1String("Cancelled"))
                     ? said
                     : QString::fromUtf8(PrivilegedWriter::conflictMessage.data()));
        QCOMPARE(run.file, sample);
    }

    void tooLargeAFileIsRefused() {
        QByteArray large;
        for (int i = 0; large.size() < 200'000; ++i)
            large += "0.0.0.0 blocked" + QByteArray::number(i) + ".example\n";
        Scene scene(large);
        const Run run = scene.run(QStringLiteral("add new.test"));
        QCOMPARE(run.status, 1);
        QCOMPARE(run.err.trimmed(),
                 QStringLiteral("The hosts file is unexpectedly large. Refusing to write."));
        QCOMPARE(run.file, large);
    }

    void restoreWritesTheBackupByteForByte() {
        Scene scene(sample);
        QCOMPARE(scene.run(QStringLiteral("add one.test")).status, 0);
        QCOMPARE(scene.run(QStringLiteral("add two.test")).status, 0); // the same second
        const Run listed = scene.run(QStringLiteral("backups"));
        QCOMPARE(listed.out.count(QStringLiteral("hosts_")), 2);
        const Run restored = scene.run(QStringLiteral("restore"));
        QCOMPARE(restored.status, 0);
        QCOMPARE(restored.file, sample + "\n127.0.0.1\tone.test\n");
        QCOMPARE(QDir(scene.backups()).entryList(QDir::Files).size(), 3);
    }

    // The panel and pinecovectl make the same edits through the same store.
    void thePanelWritesTheSameBytes() {
        Scene byCtl(sample), byPanel(sample);
        byCtl.run(QStringLiteral("add 10.0.0.9 b.test a.test"));
        byCtl.run(QStringLiteral("off api.test"));
        HostsStore store(byPanel.environment());
        PanelStore panel(&store);
        QVERIFY(panel.add(QStringLiteral("10.0.0.9 b.test a.test")));
        for (const auto& entry : store.customEntries())
            if (entry.ip() == "127.0.0.1")
                panel.toggle(QString::fromStdString(entry.id().toString()));
        store.apply();
        QTRY_VERIFY(!store.isApplying());
        QFile ctl(byCtl.hosts()), gui(byPanel.hosts());
        QVERIFY(ctl.open(QIODevice::ReadOnly) && gui.open(QIODevice::ReadOnly));
        QCOMPARE(ctl.readAll(), gui.readAll());
    }
};

QTEST_GUILESS_MAIN(PinecovectlTest)
#include "pinecovectl_test.moc"
