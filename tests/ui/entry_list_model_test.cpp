// SPDX-License-Identifier: MIT
// Both lists under QAbstractItemModelTester while the store is edited at random: every move,
// insert and remove must be announced exactly as the rows change.

#include "entry_list_model.h"
#include "fake_script_runner.h"
#include "hosts_store.h"

#include <QAbstractItemModelTester>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <random>

using namespace pinecove;

namespace {

// A store over a temporary hosts file holding `text`.
std::unique_ptr<HostsStore> storeWith(const QTemporaryDir& dir, const QByteArray& text) {
    const QString path = dir.filePath(QStringLiteral("hosts"));
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(text);
    file.close();
    HostsStore::Environment environment;
    environment.hostsPath = path;
    environment.runner = std::make_shared<FakeScriptRunner>(path);
    return std::make_unique<HostsStore>(environment);
}

} // namespace

class EntryListModelTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void followsTheStoreRowForRow() {
        QByteArray text = "127.0.0.1 localhost\n";
        for (int i = 0; i < 40; ++i)
            text += QStringLiteral("%1127.0.0.%2 host%3.test\n")
                        .arg(i % 3 ? "" : "#")
                        .arg(i % 7)
                        .arg(i % 11)
                        .toUtf8();
        QTemporaryDir dir;
        const auto owned = storeWith(dir, text);
        HostsStore& store = *owned;

        EntryListModel custom(&store, EntryListModel::Kind::Custom);
        EntryListModel system(&store, EntryListModel::Kind::System);
        QAbstractItemModelTester customTester(
            &custom, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QAbstractItemModelTester systemTester(
            &system, QAbstractItemModelTester::FailureReportingMode::QtTest);

        std::mt19937 random(5);
        for (int step = 0; step < 300; ++step) {
            const int rows = custom.rowCount();
            const int action = static_cast<int>(random() % 10);
            if (action < 5 && rows > 0)
                store.toggle(*Uuid::fromString(custom.index(static_cast<int>(random()) % rows)
                                                   .data(EntryListModel::IdRole)
                                                   .toString()
                                                   .toStdString()));
            else if (action < 7 && rows > 0)
                store.remove(*Uuid::fromString(custom.index(static_cast<int>(random()) % rows)
                                                   .data(EntryListModel::IdRole)
                                                   .toString()
                                                   .toStdString()));
            else if (action < 9)
                store.add("10.0.0." + std::to_string(random() % 9),
                          {"n" + std::to_string(step) + ".test"});
            else
                store.load();

            // The model's rows are the store's sorted custom entries, in order.
            QCOMPARE(custom.rowCount(), store.customOrder().size());
            for (int row = 0; row < custom.rowCount(); ++row)
                QCOMPARE(custom.index(row).data(EntryListModel::IdRole).toString().toStdString(),
                         store.customOrder().idAt(row).toString());
        }
        QCOMPARE(system.rowCount(), 1);
        QCOMPARE(system.index(0).data(EntryListModel::TitleRole).toString(),
                 QStringLiteral("localhost"));
    }

    void rolesCarryTheRowTexts() {
        QTemporaryDir dir;
        const auto owned = storeWith(dir, "#10.0.0.5 a.test b.test c.test\n");
        HostsStore& store = *owned;
        EntryListModel custom(&store, EntryListModel::Kind::Custom);
        const QModelIndex row = custom.index(0);
        QCOMPARE(row.data(EntryListModel::TitleRole).toString(), QStringLiteral("a.test"));
        QCOMPARE(row.data(EntryListModel::BadgeRole).toString(), QStringLiteral("+2"));
        QCOMPARE(row.data(EntryListModel::BadgeTooltipRole).toString(),
                 QStringLiteral("b.test  c.test"));
        QCOMPARE(row.data(EntryListModel::AddressRole).toString(), QStringLiteral("10.0.0.5"));
        QCOMPARE(row.data(EntryListModel::EnabledRole).toBool(), false);
        QCOMPARE(row.data(EntryListModel::AccessibleLabelRole).toString(),
                 QStringLiteral("a.test, b.test, c.test, 10.0.0.5"));
        QCOMPARE(row.data(EntryListModel::AccessibleValueRole).toString(), QStringLiteral("off"));
    }
};

QTEST_GUILESS_MAIN(EntryListModelTest)
#include "entry_list_model_test.moc"
