// SPDX-License-Identifier: MIT
// Each row's main control, as a screen reader sees it through QAccessible.

#include "entry_row_control.h"
#include "panel_fixture.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QTest>

namespace {

const std::string hosts = "127.0.0.1 localhost\n"
                          "127.0.0.1 a.test b.test c.test\n"
                          "#10.0.0.5 off.test\n";

// List delegates live in the visual item tree, not the QObject tree.
void collectControls(QQuickItem* item, QList<EntryRowControl*>& found) {
    if (auto* control = qobject_cast<EntryRowControl*>(item))
        found << control;
    for (QQuickItem* child : item->childItems())
        collectControls(child, found);
}

QList<EntryRowControl*> rowControls(PanelFixture& fixture) {
    QList<EntryRowControl*> found;
    collectControls(fixture.panel(), found);
    return found;
}

EntryRowControl* controlLabelled(PanelFixture& fixture, const QString& labelStart) {
    for (EntryRowControl* control : rowControls(fixture))
        if (control->label().startsWith(labelStart))
            return control;
    return nullptr;
}

} // namespace

class EntryRowAccessibilityTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void rowsExposeLabelValueHintAndActions_data() {
        QTest::addColumn<QString>("labelStart");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("hint");
        QTest::addColumn<bool>("disabled");
        QTest::newRow("custom, on") << "a.test"
                                    << "a.test, b.test, c.test, 127.0.0.1"
                                    << "on"
                                    << "Toggles this entry on or off." << false;
        QTest::newRow("custom, off") << "off.test"
                                     << "off.test, 10.0.0.5"
                                     << "off"
                                     << "Toggles this entry on or off." << false;
        QTest::newRow("system") << "localhost"
                                << "localhost, 127.0.0.1, system entry, locked"
                                << "on"
                                << "" << true;
    }

    void rowsExposeLabelValueHintAndActions() {
        QFETCH(QString, labelStart);
        QFETCH(QString, label);
        QFETCH(QString, value);
        QFETCH(QString, hint);
        QFETCH(bool, disabled);
        PanelFixture fixture(hosts);
        fixture.panel()->setProperty("systemExpanded", true);
        fixture.view().show();
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.view()));
        EntryRowControl* control = nullptr;
        QTRY_VERIFY((control = controlLabelled(fixture, labelStart)) != nullptr);

        QAccessibleInterface* iface = QAccessible::queryAccessibleInterface(control);
        QVERIFY(iface);
        QCOMPARE(iface->role(), QAccessible::Button);
        QCOMPARE(iface->text(QAccessible::Name), label);
        QCOMPARE(iface->text(QAccessible::Value), value);
        QVERIFY(iface->state().checkable); // AT-SPI has no text value: "on" reads as checked
        QCOMPARE(bool(iface->state().checked), value == QStringLiteral("on"));
        QCOMPARE(iface->text(QAccessible::Description), hint);
        QCOMPARE(bool(iface->state().disabled), disabled);
        QVERIFY(iface->parent());
        QAccessibleActionInterface* actions = iface->actionInterface();
        QVERIFY(actions);
        QVERIFY(actions->actionNames().contains(QStringLiteral("Remove")));
        QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    }

    void theRemoveActionRemovesACustomEntry() {
        PanelFixture fixture(hosts);
        fixture.view().show();
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.view()));
        EntryRowControl* control = nullptr;
        QTRY_VERIFY((control = controlLabelled(fixture, QStringLiteral("off.test"))) != nullptr);
        QAccessible::queryAccessibleInterface(control)->actionInterface()->doAction(
            QStringLiteral("Remove"));
        QCOMPARE(fixture.store().customEntries().size(), 1u);
        QVERIFY(fixture.store().isDirty());
    }

    void pressTogglesAndLockedRowsRefuseBoth() {
        PanelFixture fixture(hosts);
        fixture.panel()->setProperty("systemExpanded", true);
        fixture.view().show();
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.view()));
        EntryRowControl* custom = nullptr;
        QTRY_VERIFY((custom = controlLabelled(fixture, QStringLiteral("a.test"))) != nullptr);
        QAccessible::queryAccessibleInterface(custom)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QCOMPARE(fixture.store().activeCustomCount(), 0);

        EntryRowControl* system = controlLabelled(fixture, QStringLiteral("localhost"));
        QVERIFY(system);
        const std::string before = fixture.store().serialized();
        auto* actions = QAccessible::queryAccessibleInterface(system)->actionInterface();
        actions->doAction(QAccessibleActionInterface::pressAction());
        actions->doAction(QStringLiteral("Remove"));
        QCOMPARE(fixture.store().serialized(), before);
    }

    // What a screen reader's press does, on the bar's buttons: Apply writes, Discard reloads.
    void theBarsButtonsCanBePressed() {
        PanelFixture fixture(hosts);
        fixture.view().show();
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.view()));
        for (const char* name : {"discardButton", "applyButton"}) {
            fixture.store().toggle(fixture.store().customEntries().front().id());
            QVERIFY(fixture.store().isDirty());
            auto* button = fixture.panel()->findChild<QQuickItem*>(QLatin1String(name));
            QVERIFY(button);
            QAccessible::queryAccessibleInterface(button)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
            QTRY_VERIFY2(!fixture.store().isDirty(), name);
        }
    }
};

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    EntryRowAccessibilityTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "entry_row_accessibility_test.moc"
