// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickView>

class HostsStore;

// The window that holds PanelView: a frameless popover under the tray item, or, where the
// desktop has no tray, an ordinary small window so that Pinecove stays usable.
class PanelWindow : public QQuickView {
    Q_OBJECT

public:
    enum class Style { Popover, Window };

    PanelWindow(HostsStore& store, Style style);

    // Opens the popover under `anchor` (the tray item's rectangle, or a point), or closes it if
    // it is open.
    void toggleAt(const QRect& anchor);
    // Shows the panel (raising it if open) and gives it the keyboard.
    void present(const QRect& anchor = {});

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void placeUnder(const QRect& anchor);

    Style style_;
};
