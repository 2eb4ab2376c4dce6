// SPDX-License-Identifier: MIT
#pragma once

#include "tray_presence.h"

#include <QColor>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <optional>
#include <utility>

class ColorScheme;
class HostsStore;
class Panel;

// The item in the menu bar or system tray: its icon and label show whether there are
// unapplied edits; a click opens or closes the panel, and its menu offers "Open Pinecove",
// "Refresh" and "Quit Pinecove".
//
// Hosts that load icons by name (StatusNotifierItem: KDE, GNOME's extension, waybar) get the
// installed symbolic icon and recolour it to their panel. Elsewhere the icon is a drawn picture:
// in black or white for the X11 tray's own colour where it can be read, else for the scheme.
class TrayItem : public QObject {
    Q_OBJECT

public:
    TrayItem(HostsStore& store, Panel& panel, ColorScheme& scheme, TrayPresence::Kind kind);
    void show() { icon_.show(); }
    // Whether the icon is really in a status area now, where a user can click it.
    bool isShown() const;

private:
    void refresh();
    QRect anchor() const;

    HostsStore& store_;
    ColorScheme& scheme_;
    TrayPresence::Kind kind_;
    QMenu menu_; // outlives the icon that shows it
    QSystemTrayIcon icon_;
    bool dirty_ = false; // as the store last announced it
    std::optional<QColor> trayBackground_;
    std::optional<std::pair<bool, QColor>> shown_; // dirty and colour, once an icon is set
};
