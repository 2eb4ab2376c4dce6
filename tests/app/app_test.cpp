// SPDX-License-Identifier: MIT
// The app's own parts around the panel: the single-instance hand-over, the panel's window and
// the tray icon.
#include "hosts_fixture.h"
#include "menu_bar_icon.h"
#include "panel_engine.h"
#include "panel_window.h"
#include "single_instance.h"

#include <QApplication>
#include <QDir>
#include <QLocalServer>
#include <QMessageBox>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>
#include <cmath>
#include <unistd.h>

Q_IMPORT_QML_PLUGIN(PinecovePlugin)

namespace {

// A point's pixel in an image drawn bottom-left up, at `ratio`.
QPoint pixelOf(QPointF point, qreal ratio) {
    return {static_cast<int>(point.x() * ratio),
            static_cast<int>((MenuBarIcon::canvas - point.y()) * ratio)};
}

// WCAG's contrast ratio.
double contrast(QRgb a, QRgb b) {
    const auto luminance = [](QRgb rgb) {
        const auto channel = [](int value) {
            const double c = value / 255.0;
            return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * channel(qRed(rgb)) + 0.7152 * channel(qGreen(rgb)) +
               0.0722 * channel(qBlue(rgb));
    };
    // By value: std::minmax of two temporaries hands back references to them.
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace

class AppTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QApplication::setQuitOnLastWindowClosed(false);
        QDir().mkpath(QStringLiteral(PINECOVE_SCREENSHOTS_DIR));
    }

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

    // Without a tray the window is all of Pinecove: closing it quits, but with unapplied edits it
    // asks first, and cancelling keeps Pinecove, its window and the edits. A popover only hides,
    // and so does a window while a tray icon can bring it back (Wayland's floating panel);
    // Escape and a second tray click hide those two as well.
    void closingQuitsOnlyWithoutATray_data() {
        QTest::addColumn<PanelWindow::Style>("style");
        QTest::addColumn<bool>("trayIcon");
        QTest::addColumn<bool>("unsaved");
        QTest::addColumn<bool>("quits");
        QTest::newRow("window, no tray") << PanelWindow::Style::Window << false << false << true;
        QTest::newRow("unsaved, cancelled") << PanelWindow::Style::Window << false << true << false;
        QTest::newRow("popover") << PanelWindow::Style::Popover << true << false << false;
        QTest::newRow("window with a tray") << PanelWindow::Style::Window << true << false << false;
    }
    void closingQuitsOnlyWithoutATray() {
        QFETCH(PanelWindow::Style, style);
        QFETCH(bool, trayIcon);
        QFETCH(bool, unsaved);
        QFETCH(bool, quits);
        usePanelRenderer();
        HostsFixture hosts("127.0.0.1 myapp.test\n");
        const auto store = hosts.store();
        QVERIFY(!unsaved || store->add("127.0.0.1", {"new.test"}));
        PanelWindow panel(*store, style);
        panel.setCloseQuits(!trayIcon);
        panel.present();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        if (style == PanelWindow::Style::Window) // a fixed size, which tiling compositors float
            QCOMPARE(panel.minimumSize(), panel.maximumSize());
        if (trayIcon) {
            QTest::keyClick(&panel, Qt::Key_Escape);
            QVERIFY(!panel.isVisible());
            panel.toggleAt({});
            QVERIFY(panel.isVisible());
            panel.toggleAt({});
            QVERIFY(!panel.isVisible());
            panel.present();
        }
        QString asked;
        QTimer::singleShot(0, &panel, [&panel] { panel.close(); });
        QTimer::singleShot(300, &panel, [&asked] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                asked = box->text();
                box->reject();
            }
        });
        // Tied to this panel, so that it cannot end a later test's event loop.
        QTimer::singleShot(2000, &panel, [] { QCoreApplication::exit(2); });
        QCOMPARE(QCoreApplication::exec(), quits ? 0 : 2);
        QCOMPARE(panel.isVisible(), unsaved);
        QCOMPARE(asked.contains(QStringLiteral("not been applied")), unsaved);
        QCOMPARE(store->isDirty(), unsaved);
    }

    // The nodes and the dot read at 3:1 or better, measured on the pixels as the panel shows
    // them, and the dot shows only with unsaved changes: in the scheme's colour on the panels
    // that scheme implies, and in the colour chosen for a tray whose own colour is read. The
    // composites are saved for review.
    void readsOnItsPanel_data() {
        QTest::addColumn<QColor>("panel");
        QTest::addColumn<QColor>("glyph");
        QTest::newRow("light scheme, light panel")
            << QColor(0xf6f5f4) << MenuBarIcon::foreground(false);
        QTest::newRow("dark scheme, dark panel")
            << QColor(0x303030) << MenuBarIcon::foreground(true);
        const std::pair<const char*, QColor> trays[] = {
            {"GNOME top bar", QColor(Qt::black)},   {"Plasma light", QColor(0xeff0f1)},
            {"Plasma dark", QColor(0x31363b)},      {"Xfce default", QColor(0x2b2b2b)},
            {"Cinnamon default", QColor(0x2e2e33)}, {"mid grey", QColor(0x777777)},
        };
        for (const auto& [name, colour] : trays)
            QTest::newRow(name) << colour << MenuBarIcon::foregroundOn(colour);
    }
    void readsOnItsPanel() {
        QFETCH(QColor, panel);
        QFETCH(QColor, glyph);
        for (const qreal ratio : {1.0, 2.0}) {
            for (const bool dirty : {false, true}) {
                QImage image(qRound(18 * ratio), qRound(18 * ratio), QImage::Format_RGB32);
                image.setDevicePixelRatio(ratio);
                image.fill(panel);
                QPainter(&image).drawImage(0, 0, MenuBarIcon::draw(dirty, ratio, glyph));
                const double node = contrast(image.pixel(pixelOf({9, 13.8}, ratio)), panel.rgb());
                QVERIFY2(node >= 3, qPrintable(QStringLiteral("node at %1:1").arg(node)));
                const QPoint dot = pixelOf(MenuBarIcon::unsavedDot.center(), ratio);
                QCOMPARE(contrast(image.pixel(dot), panel.rgb()) >= 3, dirty);
                if (ratio == 2.0)
                    QVERIFY(image.scaled(image.size() * 4)
                                .save(QStringLiteral(PINECOVE_SCREENSHOTS_DIR "/tray-icon-%1%2.png")
                                          .arg(panel.name().mid(1),
                                               dirty ? QStringLiteral("-dirty") : QString())));
            }
        }
    }
};

QTEST_MAIN(AppTest)

#include "app_test.moc"
