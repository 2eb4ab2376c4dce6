// SPDX-License-Identifier: MIT
import QtQuick
import Pinecove

// Where the keyboard is: a ring in the desktop's highlight colour around the focused control,
// so that Space, Return and Delete never act on something the user cannot see.
Rectangle {
    property real inset: -2

    anchors.fill: parent
    anchors.margins: inset
    radius: 6
    color: "transparent"
    border.width: 2
    border.color: Theme.focus
}
