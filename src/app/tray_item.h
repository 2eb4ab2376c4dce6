// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSystemTrayIcon>
#include <optional>

class HostsStore;
class PanelWindow;

// The item in the menu bar or system tray: its icon and label show whether there are
// unapplied edits, and a click opens or closes the panel.
class TrayItem : public QObject {
    Q_OBJECT

public:
    TrayItem(HostsStore& store, PanelWindow& panel);
    void show() { icon_.show(); }

private:
    void follow(bool dirty);

    HostsStore& store_;
    QSystemTrayIcon icon_;
    std::optional<bool> shownDirty_; // none until the first image is set
};
