// SPDX-License-Identifier: MIT
// Pinecove: edits the hosts file from the menu bar or system tray.

#include "hosts_store.h"
#include "panel_engine.h"
#include "panel_window.h"
#include "single_instance.h"
#include "tray_item.h"

#include <QApplication>
#include <QCursor>
#include <QSystemTrayIcon>
#include <QtQml/qqmlextensionplugin.h>
#include <memory>

Q_IMPORT_QML_PLUGIN(PinecovePlugin)

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Pinecove"));
    QApplication::setApplicationDisplayName(QStringLiteral("Pinecove"));
    QApplication::setDesktopFileName(QStringLiteral("io.pinecove.Pinecove"));
    QApplication::setQuitOnLastWindowClosed(false);

    SingleInstance instance;
    if (instance.handedToRunningInstance())
        return 0;
    instance.listen();

    usePanelRenderer();
    HostsStore store; // the one store: loads /etc/hosts now
    const bool hasTray = QSystemTrayIcon::isSystemTrayAvailable();
    PanelWindow panel(store, hasTray ? PanelWindow::Style::Popover : PanelWindow::Style::Window);
    std::unique_ptr<TrayItem> tray;
    if (hasTray) {
        tray = std::make_unique<TrayItem>(store, panel);
        tray->show();
    } else {
        panel.present(); // no status area: an ordinary window keeps Pinecove usable
    }
    QObject::connect(&instance, &SingleInstance::showRequested, &panel,
                     [&panel] { panel.present(QRect(QCursor::pos(), QSize(1, 1))); });
    return QApplication::exec();
}
