// SPDX-License-Identifier: MIT
#include "tray_follower.h"

#include "panel.h"
#include "tray_item.h"

namespace {

// How long a new icon may take to appear before the window comes back (or stays).
constexpr qint64 iconGraceMs = 4000;
// Looking for a tray is a D-Bus call or two and an X11 round trip: often while an icon is
// expected, seldom once things are settled.
constexpr int expectingMs = 250;
constexpr int settledMs = 2000;

} // namespace

TrayFollower::TrayFollower(HostsStore& store, Panel& panel, ColorScheme& scheme)
    : store_(store)
    , panel_(panel)
    , scheme_(scheme) {
    connect(&timer_, &QTimer::timeout, this, &TrayFollower::check);
}

TrayFollower::~TrayFollower() = default;

void TrayFollower::start() {
    check();
    if (!tray_)
        useWindow();
    timer_.start(tray_ && !iconShown_ ? expectingMs : settledMs);
}

bool TrayFollower::windowShown() const {
    return panel_.style() == PanelWindow::Style::Window && panel_.isVisible();
}

void TrayFollower::useWindow() {
    iconShown_ = false;
    panel_.setCloseQuits(true);
    const bool wasShown = windowShown();
    panel_.setStyle(PanelWindow::Style::Window);
    if (!wasShown)
        panel_.present(); // no icon to click: the window keeps Pinecove usable
}

void TrayFollower::check() {
    const TrayPresence::Kind kind = TrayPresence::current();
    const bool servable = kind != TrayPresence::Kind::None && (!qtKind_ || *qtKind_ == kind);
    if (!servable) {
        if (tray_) {
            tray_.reset();
            useWindow();
        }
        timer_.setInterval(settledMs);
        return;
    }
    if (!tray_) {
        tray_ = std::make_unique<TrayItem>(store_, panel_, scheme_, kind);
        tray_->show();
        qtKind_ = kind;
        iconShown_ = false;
        sinceTrayMade_.start();
    }
    const bool shown = tray_->isShown();
    if (shown && !iconShown_) {
        iconShown_ = true;
        panel_.setCloseQuits(false);
        // Where the compositor places windows the panel stays the small floating window a click
        // shows.
        if (!PanelWindow::compositorPlacesWindows()) {
            panel_.setStyle(PanelWindow::Style::Popover);
            panel_.hide();
        }
    } else if (!shown && iconShown_) {
        useWindow(); // the icon went, with its tray or without
    } else if (!shown && sinceTrayMade_.elapsed() > iconGraceMs && !windowShown()) {
        useWindow(); // it never appeared
    }
    timer_.setInterval(iconShown_ || sinceTrayMade_.elapsed() > iconGraceMs ? settledMs
                                                                            : expectingMs);
}
