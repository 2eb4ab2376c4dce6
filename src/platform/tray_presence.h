// SPDX-License-Identifier: MIT
#pragma once

// Which status area the desktop offers right now. Asked afresh on every call, so a tray that
// starts after Pinecove (autostart at login) or goes away is noticed.
//
// Qt decides once per process whether to use a StatusNotifierItem host, the first time anything
// asks it about trays; asked before the host is up, it never uses one. So Pinecove answers this
// itself and makes its tray icon only once a status area is there.
#include <QColor>
#include <QtGui/qwindowdefs.h>
#include <optional>

namespace TrayPresence {

enum class Kind { None, StatusNotifier, XEmbed };

Kind current();

// Whether the watcher lists an item of this process. Asked after current() has found a host
// that shows items: together they say the icon is somewhere a user can click it.
bool statusNotifierItemShown();

// Whether the X11 window `icon` sits inside a tray (a tray reparents the icons it embeds).
bool embeddedInTray(WId icon);

// The most common colour of the X11 tray's own window: what an icon there is drawn on. Nothing
// where it cannot be read.
std::optional<QColor> xembedTrayBackground();

} // namespace TrayPresence
