// SPDX-License-Identifier: MIT
// The app's own parts around the panel: the single-instance hand-over and the panel's window.
#include "hosts_fixture.h"
#include "panel_engine.h"
#include "panel_window.h"
#include "single_instance.h"

#include <QApplication>
#include <QLocalServer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>
#include <unistd.h>

Q_IMPORT_QML_PLUGIN(PinecovePlugin)

class AppTest : public QObject {
    Q_OBJECT

private slots:
    // Someone else's listener where the name used to live (/tmp/pinecove-<uid>) must not make
    // Pinecove hand itself over and quit; a second start of the same session still finds the
    // first.
    void aSquattedNameIsIgnoredAndTheSessionsOwnIsFound() {
        QTemporaryDir runtime, temp;
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
        qputenv("TMPDIR", QFile::encodeName(temp.path()));
        QLocalServer squatter;
        QVERIFY(squatter.listen(temp.filePath(QStringLiteral("pinecove-%1").arg(::getuid()))));
        SingleInstance first;
        QVERIFY(!first.handedToRunningInstance());
        first.listen();
        QSignalSpy shown(&first, &SingleInstance::showRequested);
        SingleInstance second;
        QVERIFY(second.handedToRunningInstance());
        QTRY_COMPARE(shown.count(), 1);
    }

    // Without a tray the window is all of Pinecove: closing it quits. A popover only hides.
    void closingTheWindowQuitsAndThePopoverHides() {
        usePanelRenderer();
        for (const bool window : {false, true}) {
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
    }
};

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    AppTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "app_test.moc"
