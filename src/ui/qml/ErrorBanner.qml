// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pinecove

// The store's one error message, for as long as the store reports it.
Rectangle {
    id: banner

    property string message

    implicitHeight: layout.implicitHeight + 16
    color: Theme.alpha(Theme.red, 0.08)
    // A stop in the Tab order, so a screen reader reaches the whole message even when the
    // screen shows it cut to two lines.
    activeFocusOnTab: true
    Accessible.role: Accessible.AlertMessage
    Accessible.name: message
    transform: Translate {
        id: shift
    }
    onVisibleChanged: {
        if (visible)
            entrance.restart();
    }

    EntranceAnimation {
        id: entrance

        target: banner
        shift: shift
    }

    FocusRing {
        inset: 2
        visible: banner.activeFocus
    }

    RowLayout {
        id: layout

        anchors.fill: parent
        anchors.leftMargin: 14
        anchors.rightMargin: 14
        spacing: 8

        Symbol {
            name: "exclamationmark.triangle.fill"
            size: 11
            tint: Theme.red
        }

        Text {
            text: banner.message
            color: Theme.secondary
            font.pixelSize: Theme.captionSize
            wrapMode: Text.WordWrap
            maximumLineCount: 2
            elide: Text.ElideRight
            Layout.fillWidth: true
            Accessible.ignored: true // the banner itself carries the whole message
        }
    }
}
