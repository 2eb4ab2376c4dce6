// SPDX-License-Identifier: MIT
import QtQuick
import Pinecove

// On: a teal-to-green disc with a soft green glow. Off: a hollow ring.
Item {
    id: dot

    property bool on: true

    implicitWidth: 12
    implicitHeight: 12

    // The glow: two faint halos standing in for a 3-point blur.
    Repeater {
        model: dot.on ? [{
                "d": 15,
                "a": 0.14
            }, {
                "d": 12,
                "a": 0.22
            }] : []
        delegate: Rectangle {
            required property var modelData
            anchors.centerIn: parent
            width: modelData.d
            height: width
            radius: width / 2
            color: Theme.alpha(Theme.green, modelData.a)
        }
    }

    Rectangle {
        anchors.centerIn: parent
        width: 9
        height: 9
        radius: 4.5
        visible: dot.on
        rotation: 45 // turns the horizontal gradient into top-leading to bottom-trailing
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop {
                position: 0
                color: Theme.teal
            }
            GradientStop {
                position: 1
                color: Theme.green
            }
        }
    }

    Rectangle {
        anchors.centerIn: parent
        width: 9
        height: 9
        radius: 4.5
        visible: !dot.on
        color: "transparent"
        border.width: 1.5
        border.color: Theme.alpha(Theme.secondary, Theme.secondary.a * 0.5)
    }
}
