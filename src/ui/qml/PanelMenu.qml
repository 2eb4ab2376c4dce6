// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls
import Pinecove

// A menu drawn in the panel's own colours, light or dark like the panel, whatever the desktop
// theme's menus look like; it stays inside the panel's window.
Menu {

    margins: 4
    padding: 4
    // As wide as its widest item: Qt 6.4 sizes a menu by its background alone.
    implicitWidth: {
        let widest = 180;
        for (let i = 0; i < count; ++i)
            widest = Math.max(widest, itemAt(i).implicitWidth);
        return widest + leftPadding + rightPadding;
    }

    background: Rectangle {
        implicitWidth: 180
        radius: 8
        color: Theme.menuFill
        border.width: 1
        border.color: Theme.panelEdge
    }

    delegate: MenuAction {
    }
}
