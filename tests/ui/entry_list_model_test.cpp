// SPDX-License-Identifier: MIT
// The custom list as the panel gets it: under QAbstractItemModelTester, while the store is edited
// at random, its rows must always be the full sort by the list's rule, each move, insert and
// remove announced exactly as the rows change; and the fast sort keys must agree with the collator.
#include "entry_list_model.h"
#include "hostname_collation.h"
#include "hosts_fixture.h"

#include <QAbstractItemModelTester>
#include <QCollator>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <random>

using namespace pinecove;

namespace {

// The list order exactly as the rule states it, with the collator itself and a stable sort.
QStringList referenceOrder(const HostsDocument& document) {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<const HostEntry*> custom;
    for (const Uuid& id : document.order)
        if (const HostEntry* entry = document.entries.find(id); entry && !entry->isSystem())
            custom.push_back(entry);
    auto firstName = [](const HostEntry* e) {
        return QString::fromStdString(std::string(e->hostnames().front()));
    };
    std::stable_sort(custom.begin(), custom.end(), [&](const HostEntry* a, const HostEntry* b) {
        if (a->isEnabled() != b->isEnabled())
            return a->isEnabled();
        const int byName = collator.compare(firstName(a), firstName(b));
        if (byName != 0)
            return byName < 0;
        return a->ip() < b->ip();
    });
    QStringList ids;
    for (const HostEntry* entry : custom)
        ids << QString::fromStdString(entry->id().toString());
    return ids;
}

// Few distinct names and addresses, so that ties on name and address are common.
const std::vector<std::string> names = {"alpha.test", "Alpha.test", "beta.test", "b-eta.test",
                                        "b_eta.test", "b.eta.test", "ch.test",   "h.test",
                                        "aa.test",    "z9.test",    "9z.test",   "_x"};
const std::vector<std::string> addresses = {"127.0.0.1",   "10.0.0.5", "192.168.0.10",
                                            "192.168.0.9", "::1",      "fe80::1%lo0"};
const std::string alphabet = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._";

} // namespace

class EntryListModelTest : public QObject {
    Q_OBJECT

private slots:
    void followsTheRuleRowForRow() {
        std::mt19937 random(11);
        // Two names alike in the sixteen key bytes each entry keeps: only the rest parts them.
        std::string text = "127.0.0.1 localhost\n10.0.0.1 sixteen-letters-.test\n"
                           "10.0.0.9 sixteen-letters-\n";
        // Each draw in a statement of its own: the order in which the operands of one expression
        // are evaluated differs between compilers, and so would the text.
        for (int i = 0; i < 60; ++i) {
            const bool off = random() % 3 == 0;
            const std::string& address = addresses[random() % addresses.size()];
            const std::string& name = names[random() % names.size()];
            text += (off ? "#" : "") + address + " " + name + "\n";
        }
        HostsFixture hosts(text);
        const auto store = hosts.store();
        EntryListModel custom(store.get(), EntryListModel::Kind::Custom);
        EntryListModel system(store.get(), EntryListModel::Kind::System);
        using Tester = QAbstractItemModelTester;
        Tester customTester(&custom, Tester::FailureReportingMode::QtTest);
        Tester systemTester(&system, Tester::FailureReportingMode::QtTest);
        const auto idAt = [&](int row) {
            return custom.index(row).data(EntryListModel::IdRole).toString();
        };
        QSignalSpy changed(&custom, &QAbstractItemModel::dataChanged);
        for (int step = 0; step < 400; ++step) {
            const int rows = custom.rowCount();
            const int action = static_cast<int>(random() % 10);
            const int row = rows > 0 ? static_cast<int>(random() % static_cast<unsigned>(rows)) : 0;
            if (action < 5 && rows > 0) {
                const QString id = idAt(row);
                store->toggle(*Uuid::fromString(id.toStdString()));
                // Announced where the row now stands, so a view redraws it there.
                QCOMPARE(idAt(changed.takeLast().front().toModelIndex().row()), id);
            } else if (action < 7 && rows > 0) {
                store->remove(*Uuid::fromString(idAt(row).toStdString()));
            } else if (action < 9) {
                const std::string& address = addresses[random() % addresses.size()];
                store->add(address, {"n" + std::to_string(step) + names[random() % names.size()]});
            } else {
                store->load();
            }
            QStringList shown;
            for (int i = 0; i < custom.rowCount(); ++i)
                shown << idAt(i);
            QCOMPARE(shown, referenceOrder(store->document()));
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

    // The sort keys that spare the collator most comparisons order names as it does, per locale.
    void fastKeysAgreeWithTheCollator() {
        std::mt19937 random(3);
        auto name = [&] {
            std::string text(1 + random() % 6, 'a');
            for (char& c : text)
                c = alphabet[random() % alphabet.size()];
            return text;
        };
        for (const char* locale : {"C", "en_US", "cs_CZ", "da_DK", "sv_SE", "tr_TR", "de_DE"}) {
            const HostnameCollation collation{QLocale(locale)};
            QCollator collator{QLocale(locale)};
            collator.setCaseSensitivity(Qt::CaseInsensitive);
            for (int i = 0; i < 5000; ++i) {
                const std::string a = name(), b = name();
                const int expected =
                    collator.compare(QString::fromStdString(a), QString::fromStdString(b));
                QVERIFY2(collation.compare(a, b) == (expected > 0) - (expected < 0),
                         (std::string(locale) + ": " + a + " against " + b).c_str());
            }
        }
    }
};

QTEST_GUILESS_MAIN(EntryListModelTest)
#include "entry_list_model_test.moc"
