// SPDX-License-Identifier: MIT
#pragma once

#include "tray_presence.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <memory>
#include <optional>

class ColorScheme;
class HostsStore;
class Panel;
class TrayItem;

// Keeps Pinecove reachable while status areas come and go (a tray that starts after Pinecove at
// login, a panel restarted, a desktop switched): the panel is a window until the tray icon is
// really shown, and a window again as soon as the icon goes or does not show within a few
// seconds. Edits live in the store and are never touched here.
class TrayFollower : public QObject {
    Q_OBJECT

public:
    TrayFollower(HostsStore& store, Panel& panel, ColorScheme& scheme);
    ~TrayFollower() override;

    // Looks once now, then keeps looking; shows the window at once when there is no tray.
    void start();

private:
    void check();
    void useWindow();
    bool windowShown() const; // the panel is on screen as a window

    HostsStore& store_;
    Panel& panel_;
    ColorScheme& scheme_;
    std::unique_ptr<TrayItem> tray_;
    // Qt picks StatusNotifierItem or XEmbed once per process, with the first tray icon; a tray
    // of the other kind later cannot show it, and the window stays.
    std::optional<TrayPresence::Kind> qtKind_;
    bool iconShown_ = false;
    QElapsedTimer sinceTrayMade_;
    QTimer timer_;
};
