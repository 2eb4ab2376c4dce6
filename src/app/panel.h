// SPDX-License-Identifier: MIT
#pragma once

#include "panel_window.h"

#include <QObject>
#include <memory>

class HostsStore;

// The one panel of the app, as a popover or as a window. Changing the style makes a new native
// window: X11 window managers and compositors frame, stack and composite a window by what it was
// when first mapped, and a window restyled in place was left on screen undrawn yet taking clicks.
// The edits live in the store, so nothing of the user's is lost with the old window.
class Panel : public QObject {
    Q_OBJECT

public:
    Panel(HostsStore& store, PanelWindow::Style style);

    PanelWindow::Style style() const { return window_->style(); }
    void setStyle(PanelWindow::Style style);
    bool isVisible() const { return window_->isVisible(); }
    void hide() { window_->hide(); }
    void present(const QRect& anchor = {}) { window_->present(anchor); }
    void toggleAt(const QRect& anchor) { window_->toggleAt(anchor); }
    void setCloseQuits(bool quits);
    // Why the panel's QML could not be loaded, or nothing: a broken installation.
    QString loadError() const;

private:
    HostsStore& store_;
    bool closeQuits_ = true;
    std::unique_ptr<PanelWindow, void (*)(PanelWindow*)> window_;
};
