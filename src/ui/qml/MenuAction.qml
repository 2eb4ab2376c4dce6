// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pinecove

// A menu item in the panel's own type sizes, so a desktop theme with larger fonts cannot push
// it past the panel's edge; it shows its shortcut, and a destructive one is drawn in red.
MenuItem {
    id: item

    property string hint: ""
    property bool destructive: false

    // Screen readers press menu items too; Qt 6.4 gives them no press of their own.
    Accessible.onPressAction: item.triggered()
    font.pixelSize: Theme.calloutSize
    implicitWidth: Math.max(implicitBackgroundWidth, implicitContentWidth + 24)

    background: Rectangle {
        implicitHeight: 24
        radius: 5
        color: item.highlighted ? Theme.focus : "transparent"
    }

    contentItem: RowLayout {
        spacing: 16

        Text {
            text: item.text
            font: item.font
            color: item.highlighted ? Theme.focusText : item.destructive ? Theme.red : Theme.primary
            Layout.fillWidth: true
        }

        Text {
            visible: item.hint !== ""
            text: item.hint
            font: item.font
            color: item.highlighted ? Theme.focusText : Theme.secondary
        }
    }
}
