// SPDX-License-Identifier: MIT
// Pinecove: edits the hosts file from the menu bar or system tray.

#include "color_scheme.h"
#include "hosts_store.h"
#include "panel.h"
#include "panel_engine.h"
#include "single_instance.h"
#include "tray_follower.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QCursor>
#include <QtQml/qqmlextensionplugin.h>
#include <cstdio>
#include <cstdlib>
#include <memory>

Q_IMPORT_QML_PLUGIN(PinecovePlugin)

namespace {

// --help and --version answer before any window system is asked for (a terminal over SSH has
// none). Everything else is left to QApplication, which takes Qt's own options (-platform, …).
void answerOptions(int argc, char** argv) {
    QCoreApplication::setApplicationName(QStringLiteral("pinecove"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PINECOVE_VERSION));
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QCommandLineParser options;
    options.setApplicationDescription(
        QStringLiteral("Edit the hosts file from the system tray. pinecovectl(1) makes the same "
                       "edits from a terminal."));
    const QCommandLineOption help = options.addHelpOption();
    const QCommandLineOption version = options.addVersionOption();
    options.parse(arguments);
    if (options.isSet(help)) {
        // With no application object yet, Qt cannot name the program itself.
        std::fputs(qPrintable(options.helpText().replace(QLatin1String("<executable_name>"),
                                                         QLatin1String("pinecove"))),
                   stdout);
        std::exit(0);
    }
    if (options.isSet(version))
        options.showVersion();
}

} // namespace

int main(int argc, char** argv) {
    answerOptions(argc, argv);
    // The panel is drawn in software everywhere. On Wayland, Qt would still load EGL, and with
    // it Mesa and LLVM, for a hardware path it never uses: twice the memory (107 MB against
    // 55 MB under sway). Naming no buffer integration keeps to shared memory; Qt says once that
    // it found none. A choice made in the environment stands.
    if (qEnvironmentVariableIsEmpty("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION"))
        qputenv("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION", "none");
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
    ColorScheme scheme;
    Panel panel(store, PanelWindow::Style::Window);
    if (const QString error = panel.loadError(); !error.isEmpty()) {
        qCritical("Pinecove cannot show its panel: its QML files did not load. Reinstall "
                  "Pinecove (sudo apt install --reinstall pinecove).\n%s",
                  qPrintable(error));
        return 1;
    }
    TrayFollower tray(store, panel, scheme);
    tray.start();
    QObject::connect(&instance, &SingleInstance::showRequested, &panel,
                     [&panel] { panel.present(QRect(QCursor::pos(), QSize(1, 1))); });
    return QApplication::exec();
}
