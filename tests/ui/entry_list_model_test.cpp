// SPDX-License-Identifier: MIT
// Both lists under QAbstractItemModelTester while the store is edited at random: every move,
// insert and remove must be announced exactly as the rows change.
#include "entry_list_model.h"
#include "hosts_fixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <random>

using namespace pinecove;

class EntryListModelTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void followsTheStoreRowForRow() {
        std::string text = "127.0.0.1 localhost\n";
        for (int i = 0; i < 40; ++i)
            text += (i % 3 ? "" : "#") + ("127.0.0." + std::to_string(i % 7)) + " host" +
                    std::to_string(i % 11) + ".test\n";
        HostsFixture hosts(text);
        const auto store = hosts.store();
        EntryListModel custom(store.get(), EntryListModel::Kind::Custom);
        EntryListModel system(store.get(), EntryListModel::Kind::System);
        using Tester = QAbstractItemModelTester;
        Tester customTester(&custom, Tester::FailureReportingMode::QtTest);
        Tester systemTester(&system, Tester::FailureReportingMode::QtTest);
        const auto idAt = [&](int row) {
            return custom.index(row).data(EntryListModel::IdRole).toString().toStdString();
        };
        QSignalSpy changed(&custom, &QAbstractItemModel::dataChanged);
        std::mt19937 random(5);
        for (int step = 0; step < 300; ++step) {
            const int rows = custom.rowCount();
            const int action = static_cast<int>(random() % 10);
            const int row = rows > 0 ? static_cast<int>(random() % static_cast<unsigned>(rows)) : 0;
            if (action < 5 && rows > 0) {
                const std::string id = idAt(row);
                store->toggle(*Uuid::fromString(id));
                // Announced where the row now stands, so a view redraws it there.
                QCOMPARE(idAt(changed.takeLast().front().toModelIndex().row()), id);
            } else if (action < 7 && rows > 0)
                store->remove(*Uuid::fromString(idAt(row)));
            else if (action < 9)
                store->add("10.0.0." + std::to_string(random() % 9), {"n" + std::to_string(step)});
            else
                store->load();
            // The model's rows are the store's sorted custom entries, in order.
            QCOMPARE(custom.rowCount(), store->customOrder().size());
            for (int i = 0; i < custom.rowCount(); ++i)
                QCOMPARE(idAt(i), store->customOrder().idAt(i).toString());
        }
        QCOMPARE(system.index(0).data(EntryListModel::TitleRole).toString(), "localhost");
    }

    void rolesCarryTheRowTexts() {
        HostsFixture hosts("#10.0.0.5 a.test b.test c.test\n");
        const auto store = hosts.store();
        const EntryListModel custom(store.get(), EntryListModel::Kind::Custom);
        QStringList texts;
        for (int role = EntryListModel::IdRole + 1; role <= EntryListModel::AccessibleHintRole;
             ++role)
            texts << custom.index(0).data(role).toString();
        QCOMPARE(texts.join('|'), "a.test|+2|b.test  c.test|10.0.0.5|false|false|a.test, b.test, "
                                  "c.test, 10.0.0.5|off|Toggles this entry on or off.");
    }
};

QTEST_GUILESS_MAIN(EntryListModelTest)
#include "entry_list_model_test.moc"
