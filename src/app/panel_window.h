// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickView>

class HostsStore;

// The window that holds PanelView: a frameless popover under the tray item, or, where the
// desktop has no tray (or places no client's windows, as on Wayland), an ordinary small window
// of fixed size, which tiling compositors float rather than tile. The style follows the tray
// as it comes and goes.
class PanelWindow : public QQuickView {
    Q_OBJECT

public:
    enum class Style { Popover, Window };

    PanelWindow(HostsStore& store, Style style);

    void setStyle(Style style);
    // Opens the popover under `anchor` (the tray item's rectangle, or a point), or closes it if
    // it is open.
    void toggleAt(const QRect& anchor);
    // Shows the panel (raising it if open) and gives it the keyboard.
    void present(const QRect& anchor = {});

protected:
    void keyPressEvent(QKeyEvent* event) override;
    // Without a tray the window is all of Pinecove: closing it quits, as "Quit Pinecove" does.
    bool event(QEvent* event) override;

private:
    void placeUnder(const QRect& anchor);
    // Flags, colour and size of the current style; a visible window is shown again in it.
    void applyStyle();
    void fixSizeToPanel();

    Style style_;
};
