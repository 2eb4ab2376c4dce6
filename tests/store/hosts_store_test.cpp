// SPDX-License-Identifier: MIT
#include "backups.h"
#include "hosts_fixture.h"

#include <QCoreApplication>
#include <QDir>
#include <QSignalSpy>
#include <QTest>

using namespace pinecove;

namespace {

// No final line feed, which a write would add: with nothing edited there is still nothing to
// apply. A backup must hold the carriage return and the UTF-8 as they are.
const std::string sample = "## caf\xC3\xA9\r\n"
                           "127.0.0.1 localhost\n"
                           "10.0.0.1 Beta.test\n"
                           "#10.0.0.2 alpha.test\n"
                           "10.0.0.3 alpha.test # first\n"
                           "10.0.0.3 Alpha.test # second\n"
                           "127.0.0.1 localhost extra.test";

void applyToEnd(HostsStore& store) {
    QSignalSpy finished(&store, &HostsStore::applyFinished);
    store.apply();
    if (store.isApplying()) // a refusal before the write finishes at once
        QVERIFY(finished.count() == 1 || finished.wait(5000));
}

} // namespace

class HostsStoreTest : public QObject {
    Q_OBJECT

private slots:
    // A failed test may leave a queued completion behind; run it while its runner exists.
    void cleanup() { QCoreApplication::processEvents(); }

    void applyReportsEachOutcome_data() {
        QTest::addColumn<QString>("change"); // what happens before or during the write
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("writes");
        QTest::addColumn<int>("backups");
        const auto row = [](const char* change, const QString& shown, int writes, int backups) {
            QTest::newRow(*change ? change : "written")
                << QString::fromUtf8(change) << shown << writes << backups;
        };
        row("", "", 1, 1);
        row("outside", HostsStore::conflictMessage, 0, 0);
        // A reload that fails keeps the edit; applying it is then refused.
        row("missing, reloaded", HostsStore::conflictMessage, 0, 0);
        row("not UTF-8, reloaded", HostsStore::conflictMessage, 0, 0);
        row("no folder", "Could not create the backups folder", 0, 0);
        row("same second", "", 1, 1); // taken by a folder: the backup's name gets "_02"
        row("failed:User canceled. (-128)", "", 1, 1);
        row("failed:Not authorized", "Not authorized", 1, 1);
        row("not started:launch -128", "launch -128", 1, 1);
        row("large", "The hosts file is unexpectedly large. Refusing to write.", 0, 1);
        row("pruned", "", 1, Backups::kept + 1); // of 25 older ones and a file not ours
    }
    void applyReportsEachOutcome() {
        QFETCH(QString, change);
        QFETCH(QString, shown);
        QFETCH(int, writes);
        QFETCH(int, backups);
        std::string text = sample;
        while (change == QLatin1String("large") && text.size() < 200'000)
            text += "\n0.0.0.0 blocked" + std::to_string(text.size()) + ".example.com";
        HostsFixture hosts(text);
        const auto store = hosts.store();
        applyToEnd(*store); // nothing to apply: nothing runs
        store->toggle(store->customOrder().idAt(0));
        const std::string edited = store->serialized();
        if (change == QLatin1String("outside"))
            hosts.write(text + "# another app was here\n");
        if (change.endsWith(QLatin1String("reloaded"))) {
            hosts.write("127.0.0.1 caf\xE9.test\n");
            if (change.startsWith(QLatin1String("missing")))
                QFile::remove(hosts.hostsPath());
            store->load();
            QCOMPARE(store->lastErrorText(), QStringLiteral("Could not read /etc/hosts"));
        }
        if (change == QLatin1String("no folder"))
            hosts.write({}, hosts.backupsFolder()); // a file where the folder should be
        if (change == QLatin1String("same second"))
            QDir().mkpath(hosts.backupsFolder() + '/' + Backups::fileName(hosts.now));
        if (change == QLatin1String("pruned")) {
            for (int day = 1; day <= 25; ++day)
                hosts.write({}, hosts.backupsFolder() + '/' +
                                    Backups::fileName(hosts.now.addDays(-day)));
            hosts.write({}, hosts.backupsFolder() + QStringLiteral("/HOSTS_README"));
        }
        if (change.startsWith(QLatin1String("failed:")))
            hosts.runner->outcome = ScriptRunner::Failed{change.mid(7).toStdString()};
        if (change.startsWith(QLatin1String("not started:")))
            hosts.runner->outcome = ScriptRunner::NotStarted{change.mid(12).toStdString()};
        const std::string onDisk = hosts.read();
        applyToEnd(*store);
        const QString what = change + QStringLiteral(": ") + store->lastErrorText();
        QVERIFY2(store->lastErrorText().contains(shown), qPrintable(what));
        QVERIFY2(store->hasError() != shown.isEmpty(), qPrintable(what));
        QCOMPARE(static_cast<int>(hosts.runner->requests.size()), writes);
        QCOMPARE(hosts.backupCount(), backups);
        QVERIFY(!store->isApplying());
        const bool written = change.isEmpty() || change == QLatin1String("same second") ||
                             change == QLatin1String("pruned");
        QCOMPARE(hosts.read(), written ? edited : onDisk);
        QCOMPARE(store->isDirty(), !written); // a write is read back at once
        if (written)
            QCOMPARE(hosts.read(hosts.backupsFolder() + '/' +
                                Backups::names(hosts.backupsFolder()).front()),
                     sample);
        if (writes == 1 && !shown.isEmpty()) { // a dismissed retry shows no earlier error
            hosts.runner->outcome = ScriptRunner::Failed{"User canceled. (-128)"};
            applyToEnd(*store);
            QCOMPARE(store->lastErrorText(), QString());
        }
    }
};

QTEST_GUILESS_MAIN(HostsStoreTest)
#include "hosts_store_test.moc"
