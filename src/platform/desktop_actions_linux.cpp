// SPDX-License-Identifier: MIT
#include "desktop_actions.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

namespace DesktopActions {

void openInTextEditor(const QString& path) {
    // xdg-open picks the handler for text files, which is the text editor.
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void revealFolder(const QString& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool prefersReducedMotion() {
    // GNOME's "Animations" switch, which other GTK desktops follow too. Asked once at start.
    QProcess gsettings;
    gsettings.start(QStringLiteral("gsettings"),
                    {QStringLiteral("get"), QStringLiteral("org.gnome.desktop.interface"),
                     QStringLiteral("enable-animations")});
    if (!gsettings.waitForFinished(300) || gsettings.exitCode() != 0)
        return false;
    return gsettings.readAllStandardOutput().trimmed() == "false";
}

} // namespace DesktopActions
