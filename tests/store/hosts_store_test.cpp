// SPDX-License-Identifier: MIT
#include "fake_script_runner.h"
#include "hosts_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace pinecove;

namespace {

const std::string sample = "##\n"
                           "127.0.0.1 localhost\n"
                           "10.0.0.1 Beta.test\n"
                           "#10.0.0.2 alpha.test\n"
                           "10.0.0.3 alpha.test # first\n"
                           "10.0.0.3 Alpha.test # second\n"
                           "127.0.0.1 localhost extra.test\n";

void writeFile(const QString& path, const std::string& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string readFile(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return file.readAll().toStdString();
}

std::vector<std::string> firstNames(const std::vector<HostEntry>& entries) {
    std::vector<std::string> names;
    for (const HostEntry& entry : entries)
        names.emplace_back(std::string(entry.hostnames().front()) + "@" + std::string(entry.ip()));
    return names;
}

} // namespace

class HostsStoreTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> dir_;
    QString hostsPath_;
    QString backupsFolder_;
    QDateTime now_;
    std::shared_ptr<FakeScriptRunner> runner_;

    std::unique_ptr<HostsStore> makeStore(const std::string& text) {
        writeFile(hostsPath_, text);
        HostsStore::Environment environment;
        environment.hostsPath = hostsPath_;
        environment.backupsFolder = [this] {
            return backupsFolder_;
        };
        environment.clock = [this] {
            return now_;
        };
        environment.runner = runner_;
        return std::make_unique<HostsStore>(environment);
    }

    int backupCount() const {
        return static_cast<int>(QDir(backupsFolder_).entryList(QDir::Files).size());
    }

    // Makes the store dirty with one toggle of its first custom entry.
    static void edit(HostsStore& store) { store.toggle(store.customOrder().idAt(0)); }

    static void applyToEnd(HostsStore& store) {
        QSignalSpy finished(&store, &HostsStore::applyFinished);
        store.apply();
        QVERIFY(finished.count() == 1 || finished.wait(5000));
    }

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void init() {
        dir_ = std::make_unique<QTemporaryDir>();
        hostsPath_ = dir_->filePath(QStringLiteral("hosts"));
        backupsFolder_ = dir_->filePath(QStringLiteral("Pinecove/Backups"));
        now_ = QDateTime(QDate(2026, 11, 16), QTime(21, 35, 7));
        runner_ = std::make_shared<FakeScriptRunner>(hostsPath_);
    }

    // A test that failed half-way may leave a queued completion behind; run it while its runner
    // still exists.
    void cleanup() { QCoreApplication::processEvents(); }

    // Loading

    void loadSetsTheBaselineFromTheWrittenText_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("baseline");
        QTest::addColumn<int>("lines");
        QTest::newRow("one final line feed")
            << QByteArray("a\n127.0.0.1 x.test\n") << QByteArray("a\n127.0.0.1 x.test\n") << 3;
        QTest::newRow("no final line feed")
            << QByteArray("a\n127.0.0.1 x.test") << QByteArray("a\n127.0.0.1 x.test\n") << 2;
        QTest::newRow("trailing blank lines") << QByteArray("a\n\n\n") << QByteArray("a\n") << 4;
        QTest::newRow("empty") << QByteArray("") << QByteArray("\n") << 1;
    }

    void loadSetsTheBaselineFromTheWrittenText() {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, baseline);
        QFETCH(int, lines);
        const auto store = makeStore(text.toStdString());
        QCOMPARE(store->baseline(), baseline.toStdString());
        QCOMPARE(static_cast<int>(store->lines().size()), lines);
        QVERIFY(!store->isDirty());
        QVERIFY(!store->hasError());
    }

    void aFailedFirstLoadLeavesAnEmptyDirtyStore() {
        const auto store = makeStore("");
        QFile::remove(hostsPath_);
        HostsStore::Environment environment;
        environment.hostsPath = hostsPath_;
        environment.runner = runner_;
        HostsStore empty(environment);
        QVERIFY(empty.lines().empty());
        QCOMPARE(empty.baseline(), std::string());
        QVERIFY(empty.isDirty());
        QCOMPARE(empty.lastErrorText(), QStringLiteral("Could not read /etc/hosts"));
    }

    void aFailedReloadKeepsTheModel_data() {
        QTest::addColumn<bool>("removeFile");
        QTest::newRow("file removed") << true;
        QTest::newRow("file not UTF-8") << false;
    }

    void aFailedReloadKeepsTheModel() {
        QFETCH(bool, removeFile);
        const auto store = makeStore(sample);
        edit(*store);
        if (removeFile)
            QFile::remove(hostsPath_);
        else
            writeFile(hostsPath_, "127.0.0.1 caf\xE9.test\n");
        QSignalSpy errors(store.get(), &HostsStore::lastErrorChanged);
        store->load();
        QCOMPARE(errors.count(), 1);
        QCOMPARE(store->lastErrorText(), QStringLiteral("Could not read /etc/hosts"));
        QCOMPARE(store->customEntries().size(), 5u);
        QVERIFY(store->isDirty()); // the edit survives

        writeFile(hostsPath_, sample);
        store->load();
        QVERIFY(!store->hasError());
        QVERIFY(!store->isDirty());
    }

    // Derived lists

    void listsSystemEntriesApartAndSortsCustomOnes() {
        const auto store = makeStore(sample);
        QCOMPARE(firstNames(store->systemEntries()),
                 std::vector<std::string>{"localhost@127.0.0.1"});
        // Enabled first; then by name ignoring case; then by address; ties keep file order.
        QCOMPARE(firstNames(store->customEntries()),
                 (std::vector<std::string>{"alpha.test@10.0.0.3", "Alpha.test@10.0.0.3",
                                           "Beta.test@10.0.0.1", "localhost@127.0.0.1",
                                           "alpha.test@10.0.0.2"}));
        QCOMPARE(store->customEntries()[0].comment(), std::optional<std::string_view>("first"));
        QCOMPARE(store->activeCustomCount(), 4);
        QCOMPARE(store->orderedEntries().size(), 6u);
    }

    // Edits

    void toggleMovesTheRowAndTogglingBackIsClean() {
        const auto store = makeStore(sample);
        QSignalSpy moved(store.get(), &HostsStore::customEntryMoved);
        QSignalSpy dirty(store.get(), &HostsStore::dirtyChanged);
        const Uuid beta = store->customOrder().idAt(2);
        store->toggle(beta);
        QCOMPARE(moved.count(), 1);
        QCOMPARE(moved.at(0).at(0).toInt(), 2);
        QCOMPARE(store->customOrder().idAt(moved.at(0).at(1).toInt()), beta);
        QVERIFY(store->isDirty());
        QCOMPARE(store->activeCustomCount(), 3);
        store->toggle(beta);
        QVERIFY(!store->isDirty());
        QCOMPARE(dirty.count(), 2);
        // Each announcement carries the dirty test as it stands after that change.
        QCOMPARE(dirty.at(0).at(0).toBool(), true);
        QCOMPARE(dirty.at(1).at(0).toBool(), false);
    }

    void lockedAndStaleIdsChangeNothing() {
        const auto store = makeStore(sample);
        const Uuid system = store->systemEntries().front().id();
        const Uuid stale = store->customOrder().idAt(0);
        store->load(); // every id is new now
        QSignalSpy entries(store.get(), &HostsStore::entriesChanged);
        for (const Uuid& id : {system, stale}) {
            store->toggle(id);
            store->remove(id);
        }
        QCOMPARE(entries.count(), 0);
        QVERIFY(!store->isDirty());
    }

    void addAppendsAndRefusesTakenNames() {
        const auto store = makeStore(sample);
        QSignalSpy inserted(store.get(), &HostsStore::customEntryInserted);
        QVERIFY(!store->add("127.0.0.1", {"BETA.test"}));
        QCOMPARE(inserted.count(), 0);
        QVERIFY(store->add("127.0.0.1", {"myapp.test"}));
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(store->serialized(), sample + "\n127.0.0.1\tmyapp.test\n");
        const Uuid added = store->customOrder().idAt(inserted.at(0).at(0).toInt());
        store->remove(added);
        QVERIFY(!store->isDirty());
    }

    // Apply: every outcome

    void applyWithNothingToApplyReadsNothing() {
        const auto store = makeStore(sample);
        QFile::remove(hostsPath_); // a read would now report a conflict
        store->apply();
        QVERIFY(!store->hasError());
        QVERIFY(runner_->requests.empty());
    }

    void applyRefusesAFileChangedOrRemovedSinceTheLoad_data() {
        QTest::addColumn<bool>("remove");
        QTest::newRow("changed by another app") << false;
        QTest::newRow("removed") << true;
    }

    void applyRefusesAFileChangedOrRemovedSinceTheLoad() {
        QFETCH(bool, remove);
        const auto store = makeStore(sample);
        edit(*store);
        if (remove)
            QFile::remove(hostsPath_);
        else
            writeFile(hostsPath_, sample + "# another app was here\n");
        QSignalSpy applying(store.get(), &HostsStore::isApplyingChanged);
        store->apply();
        QCOMPARE(store->lastErrorText(), HostsStore::conflictMessage);
        QCOMPARE(applying.count(), 0);
        QCOMPARE(backupCount(), 0);
        QVERIFY(runner_->requests.empty());
        QVERIFY(store->isDirty());
    }

    void aFailedBackupStopsTheApply() {
        const auto store = makeStore(sample);
        edit(*store);
        QDir().mkpath(dir_->filePath(QStringLiteral("Pinecove")));
        writeFile(backupsFolder_, "a file where the folder should be");
        applyToEnd(*store);
        QVERIFY(store->hasError());
        QVERIFY(runner_->requests.empty());
        QVERIFY(!store->isApplying());
        QVERIFY(store->isDirty());
    }

    void aSecondApplyInTheSameSecondFailsAtTheBackup() {
        const auto store = makeStore(sample);
        edit(*store);
        applyToEnd(*store);
        QVERIFY(!store->hasError());
        edit(*store);
        applyToEnd(*store);
        QVERIFY(store->lastErrorText().contains(QStringLiteral("already exists")));
        QCOMPARE(runner_->requests.size(), 1u);
        QCOMPARE(backupCount(), 1);
    }

    void applyReportsEachWriteOutcome_data() {
        QTest::addColumn<int>("kind"); // 0 failed, 1 not started
        QTest::addColumn<QString>("runnerMessage");
        QTest::addColumn<QString>("shown");
        QTest::newRow("dismissed dialog")
            << 0 << "execution error: User canceled. (-128)" << QString();
        QTest::newRow("-128 anywhere is a cancel") << 0 << "oddly -1289 here" << QString();
        QTest::newRow("authentication failure") << 0 << "Not authorized"
                                                << "Not authorized";
        QTest::newRow("runner cannot start") << 1 << "No such file or directory"
                                             << "No such file or directory";
        QTest::newRow("not-started text with -128 still shows") << 1 << "launch -128"
                                                                << "launch -128";
    }

    void applyReportsEachWriteOutcome() {
        QFETCH(int, kind);
        QFETCH(QString, runnerMessage);
        QFETCH(QString, shown);
        const auto store = makeStore(sample);
        if (kind == 0)
            runner_->outcome = ScriptRunner::Failed{runnerMessage.toStdString()};
        else
            runner_->outcome = ScriptRunner::NotStarted{runnerMessage.toStdString()};
        edit(*store);
        applyToEnd(*store);
        QCOMPARE(store->lastErrorText(), shown);
        QVERIFY(!store->isApplying());
        QVERIFY(store->isDirty());
        QCOMPARE(readFile(hostsPath_), sample);
        QCOMPARE(backupCount(), 1); // made before the prompt
    }

    void aCancelClearsAnEarlierError() {
        const auto store = makeStore(sample);
        edit(*store);
        runner_->outcome = ScriptRunner::Failed{"Not authorized"};
        applyToEnd(*store);
        QVERIFY(store->hasError());
        now_ = now_.addSecs(1);
        runner_->outcome = ScriptRunner::Failed{"User canceled. (-128)"};
        applyToEnd(*store);
        QVERIFY(!store->hasError());
    }

    void tooLargeATextIsRefusedAfterTheBackup() {
        std::string big = sample;
        for (int i = 0; big.size() < 200'000; ++i)
            big += "0.0.0.0 blocked" + std::to_string(i) + ".example.com\n";
        const auto store = makeStore(big);
        edit(*store);
        applyToEnd(*store);
        QCOMPARE(store->lastErrorText(),
                 QStringLiteral("The hosts file is unexpectedly large. Refusing to write."));
        QVERIFY(runner_->requests.empty());
        QCOMPARE(backupCount(), 1);
    }

    void aSuccessfulApplyWritesBacksUpAndReloads() {
        const auto store = makeStore(sample);
        edit(*store);
        store->add("127.0.0.1", {"new.test"});
        const std::string expected = store->serialized();
        QSignalSpy applying(store.get(), &HostsStore::isApplyingChanged);
        applyToEnd(*store);
        QCOMPARE(applying.count(), 2);
        QCOMPARE(readFile(hostsPath_), expected);
        QCOMPARE(readFile(backupsFolder_ + QStringLiteral("/hosts_2026-11-16_21.35.07")), sample);
        QVERIFY(!store->isDirty());
        QVERIFY(!store->hasError());
        QVERIFY(!store->isApplying());
        QCOMPARE(store->serialized(), expected);
    }

    void onlyOneApplyRunsAtATime() {
        const auto store = makeStore(sample);
        runner_->hold = true;
        edit(*store);
        store->apply();
        QVERIFY(store->isApplying());
        store->apply();
        QCOMPARE(runner_->requests.size(), 1u);
        // Edits made while the write runs are replaced by the reload that follows it.
        store->add("127.0.0.1", {"during.test"});
        QSignalSpy finished(store.get(), &HostsStore::applyFinished);
        runner_->release();
        QCOMPARE(finished.count(), 1);
        QVERIFY(!store->isApplying());
        QVERIFY(!store->isDirty());
        QVERIFY(readFile(hostsPath_).find("during.test") == std::string::npos);
    }
};

QTEST_GUILESS_MAIN(HostsStoreTest)
#include "hosts_store_test.moc"
