// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <optional>
#include <utility>

class ColorScheme;
class HostsStore;
class PanelWindow;

// The item in the menu bar or system tray: its icon and label show whether there are
// unapplied edits, in the colour of the desktop's scheme; a click opens or closes the panel,
// and its menu offers "Open Pinecove", "Refresh" and "Quit Pinecove".
class TrayItem : public QObject {
    Q_OBJECT

public:
    TrayItem(HostsStore& store, PanelWindow& panel, ColorScheme& scheme);
    void show() { icon_.show(); }

private:
    void refresh();
    QRect anchor() const;

    HostsStore& store_;
    ColorScheme& scheme_;
    QSystemTrayIcon icon_;
    QMenu menu_;
    bool dirty_ = false;                         // as the store last announced it
    std::optional<std::pair<bool, bool>> shown_; // dirty and dark, once an image is set
};
