// SPDX-License-Identifier: MIT
// Each row's main control, as a screen reader sees it through QAccessible.
#include "entry_row_control.h"
#include "panel_fixture.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QTest>

namespace {

// List delegates live in the visual item tree, not the QObject tree.
QAccessibleInterface* rowLabelled(QQuickItem* item, const QString& start) {
    if (auto* control = qobject_cast<EntryRowControl*>(item);
        control && control->label().startsWith(start))
        return QAccessible::queryAccessibleInterface(control);
    for (QQuickItem* child : item->childItems())
        if (QAccessibleInterface* found = rowLabelled(child, start))
            return found;
    return nullptr;
}

} // namespace

class EntryRowAccessibilityTest : public QObject {
    Q_OBJECT

private slots:
    void rowsReadAndActAsTheyShow() {
        PanelFixture fixture(
            "127.0.0.1 localhost\n127.0.0.1 a.test b.test c.test\n#10.0.0.5 off.test\n");
        fixture.panel()->setProperty("systemExpanded", true);
        fixture.view().show();
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.view()));
        QTRY_VERIFY(rowLabelled(fixture.panel(), "localhost"));
        const QString hint = QStringLiteral("Toggles this entry on or off.");
        const std::vector<std::tuple<QString, QString, bool, QString>> rows = {
            {"a.test", "a.test, b.test, c.test, 127.0.0.1", true, hint},
            {"off.test", "off.test, 10.0.0.5", false, hint},
            {"localhost", "localhost, 127.0.0.1, system entry, locked", true, ""},
        };
        for (const auto& [start, label, on, description] : rows) {
            QAccessibleInterface* row = rowLabelled(fixture.panel(), start);
            QCOMPARE(row->role(), QAccessible::Button);
            QCOMPARE(row->text(QAccessible::Name), label);
            QCOMPARE(row->text(QAccessible::Value), on ? "on" : "off");
            // AT-SPI carries no text value: "on" reads as checked.
            QVERIFY(row->state().checkable);
            QCOMPARE(bool(row->state().checked), on);
            QCOMPARE(row->text(QAccessible::Description), description);
            QCOMPARE(bool(row->state().disabled), description.isEmpty());
        }
        HostsStore& store = fixture.store();
        const std::string before = store.serialized();
        for (const QString& action :
             {QAccessibleActionInterface::pressAction(), QStringLiteral("Remove")})
            rowLabelled(fixture.panel(), "localhost")->actionInterface()->doAction(action);
        QCOMPARE(store.serialized(), before);
        rowLabelled(fixture.panel(), "a.test")
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(store.activeCustomCount(), 0);
        rowLabelled(fixture.panel(), "off.test")
            ->actionInterface()
            ->doAction(QStringLiteral("Remove"));
        QCOMPARE(store.customEntries().size(), 1u);
    }
};

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    EntryRowAccessibilityTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "entry_row_accessibility_test.moc"
