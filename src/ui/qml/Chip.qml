// SPDX-License-Identifier: MIT
import QtQuick
import Pinecove

// A small capsule label: the panel's preview of a typed address or name.
Rectangle {
    id: chip

    required property string text
    required property color tint

    implicitWidth: label.implicitWidth + 14
    implicitHeight: label.implicitHeight + 6
    radius: height / 2
    color: Theme.alpha(tint, 0.15)

    Text {
        id: label

        anchors.centerIn: parent
        text: chip.text
        color: chip.tint
        font.pixelSize: 10
        font.weight: Font.Medium
        font.family: Theme.monoFamily
    }
}
