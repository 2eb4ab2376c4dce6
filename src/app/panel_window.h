// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickView>

class HostsStore;

// The window that holds PanelView: a frameless popover under the tray item, or, where the
// desktop has no tray (or places no client's windows, as on Wayland), an ordinary small window
// of fixed size, which tiling compositors float rather than tile. A window keeps the style it
// was made with: see Panel, which makes a new one when the tray comes or goes.
class PanelWindow : public QQuickView {
    Q_OBJECT

public:
    enum class Style { Popover, Window };

    PanelWindow(HostsStore& store, Style style);

    Style style() const { return style_; }
    // Wayland: the compositor alone places, raises and focuses windows, so a popover cannot open
    // under the tray item, and a window is brought forward only by mapping it anew.
    static bool compositorPlacesWindows();
    // Whether closing the window quits Pinecove: only while no tray icon can bring it back.
    void setCloseQuits(bool quits) { closeQuits_ = quits; }
    // Opens the popover under `anchor` (the tray item's rectangle, or a point), or closes it if
    // it is open in front of the user.
    void toggleAt(const QRect& anchor);
    // Shows the panel (bringing it forward if open) and gives it the keyboard.
    void present(const QRect& anchor = {});

protected:
    void keyPressEvent(QKeyEvent* event) override;
    // Without a tray the window is all of Pinecove: closing it quits, as "Quit Pinecove" does.
    // With one (a Wayland desktop's, where the panel is always a window), closing hides it.
    bool event(QEvent* event) override;

private:
    void placeUnder(const QRect& anchor);
    // Flags, colour and size of the style.
    void applyStyle();
    void fixSizeToPanel();
    // A popover that opened above a bottom tray keeps its bottom edge as its height changes.
    void keepEdge();
    // Whether closing, Escape and a second tray click hide the panel rather than end Pinecove.
    bool hidesToTray() const;

    // Asks before unapplied edits go with a quit; true to go on.
    bool confirmDiscard();

    HostsStore& store_;
    Style style_;
    bool closeQuits_ = true;
    bool growsUp_ = false;
    int bottomEdge_ = 0;
};
