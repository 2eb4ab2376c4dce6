// SPDX-License-Identifier: MIT
#include "hosts_fixture.h"
#include "panel_engine.h"
#include "panel_window.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(PinecovePlugin)

class PanelWindowTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { usePanelRenderer(); }

    // Without a tray the window is all of Pinecove: closing it quits. A popover only hides.
    void closingTheWindowQuitsAndThePopoverHides_data() {
        QTest::addColumn<bool>("window");
        QTest::newRow("window") << true;
        QTest::newRow("popover") << false;
    }

    void closingTheWindowQuitsAndThePopoverHides() {
        QFETCH(bool, window);
        HostsFixture hosts("127.0.0.1 myapp.test\n");
        const auto store = hosts.store();
        PanelWindow panel(*store,
                          window ? PanelWindow::Style::Window : PanelWindow::Style::Popover);
        panel.present();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        if (window) // a fixed size, which tiling compositors float rather than tile
            QCOMPARE(panel.minimumSize(), panel.maximumSize());
        QTimer::singleShot(0, &panel, [&panel] { panel.close(); });
        QTimer::singleShot(2000, qApp, [] { QCoreApplication::exit(2); });
        QCOMPARE(QCoreApplication::exec(), window ? 0 : 2);
        QVERIFY(!panel.isVisible());
    }
};

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    PanelWindowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "panel_window_test.moc"
