// SPDX-License-Identifier: MIT
#include "custom_order.h"
#include "hosts_edits.h"

#include <QCollator>
#include <QStandardPaths>
#include <QTest>
#include <algorithm>
#include <random>

using namespace pinecove;

namespace {

const std::string alphabet = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._";

// The list order exactly as the rule states it, with the collator itself and a stable sort.
std::vector<Uuid> referenceOrder(const HostsDocument& document, const QCollator& collator) {
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
    std::vector<Uuid> ids;
    for (const HostEntry* entry : custom)
        ids.push_back(entry->id());
    return ids;
}

std::vector<Uuid> idsOf(const CustomOrder& order) {
    std::vector<Uuid> ids;
    for (int i = 0; i < order.size(); ++i)
        ids.push_back(order.idAt(i));
    return ids;
}

// Few distinct names and addresses, so that ties on name and address are common.
const std::vector<std::string> names = {"alpha.test", "Alpha.test", "beta.test", "b-eta.test",
                                        "b_eta.test", "b.eta.test", "ch.test",   "h.test",
                                        "aa.test",    "z9.test",    "9z.test",   "_x"};
const std::vector<std::string> addresses = {"127.0.0.1",   "10.0.0.5", "192.168.0.10",
                                            "192.168.0.9", "::1",      "fe80::1%lo0"};

} // namespace

class CustomOrderTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void fastKeysAgreeWithTheCollator_data() {
        QTest::addColumn<QString>("locale");
        for (const char* locale : {"C", "en_US", "cs_CZ", "da_DK", "sv_SE", "tr_TR", "de_DE"})
            QTest::newRow(locale) << QString::fromLatin1(locale);
    }
    void fastKeysAgreeWithTheCollator() {
        QFETCH(QString, locale);
        const HostnameCollation collation{QLocale(locale)};
        QCollator collator{QLocale(locale)};
        collator.setCaseSensitivity(Qt::CaseInsensitive);
        std::mt19937 random(3);
        auto name = [&] {
            std::string text(1 + random() % 6, 'a');
            for (char& c : text)
                c = alphabet[random() % alphabet.size()];
            return text;
        };
        for (int i = 0; i < 5000; ++i) {
            const std::string a = name(), b = name();
            const int expected =
                collator.compare(QString::fromStdString(a), QString::fromStdString(b));
            QCOMPARE(collation.compare(a, b), (expected > 0) - (expected < 0));
        }
    }

    // The order kept edit by edit must always equal a full sort by the rule, and each edit must
    // report the places the list model announces: where the entry was and where it is now.
    void staysEqualToAFullSortUnderRandomEdits() {
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
        HostsDocument document = parseHostsText(text);

        const HostnameCollation collation;
        QCollator collator;
        collator.setCaseSensitivity(Qt::CaseInsensitive);
        CustomOrder order(collation);
        order.rebuild(document);
        QCOMPARE(idsOf(order), referenceOrder(document, collator));

        for (int step = 0; step < 400; ++step) {
            const Uuid id = document.order[random() % document.order.size()];
            switch (random() % 4) {
            case 0:
            case 1:
                if (toggleEntry(document, id)) {
                    const auto from = order.positionOf(id);
                    const auto moved = order.toggled(*document.entries.find(id));
                    QVERIFY(from && moved);
                    QCOMPARE(moved->first, *from);
                    QCOMPARE(moved->second, order.positionOf(id).value_or(-1));
                }
                break;
            case 2: {
                const auto from = order.positionOf(id);
                if (deleteEntry(document, id))
                    QCOMPARE(order.removed(id), from);
                break;
            }
            default: {
                const std::string& address = addresses[random() % addresses.size()];
                const std::string name =
                    "n" + std::to_string(step) + names[random() % names.size()];
                if (const auto added = addEntry(document, address, {name})) {
                    const int at = order.added(*document.entries.find(*added));
                    QCOMPARE(at, order.positionOf(*added).value_or(-1));
                }
            }
            }
            QCOMPARE(idsOf(order), referenceOrder(document, collator));
        }
    }
};

QTEST_GUILESS_MAIN(CustomOrderTest)
#include "custom_order_test.moc"
