#pragma once

#include <QObject>
#include <QSystemTrayIcon>

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
    void follow();

    HostsStore& store_;
    QSystemTrayIcon icon_;
    bool shownDirty_ = false;
};
