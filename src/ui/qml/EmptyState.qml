// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pinecove

// What the list shows before the user has any mapping of their own.
ColumnLayout {
    spacing: 8

    Item {
        implicitHeight: 28
    }

    Symbol {
        name: "sparkles"
        size: 24
        tint: Theme.tertiary
        Layout.alignment: Qt.AlignHCenter
    }

    Text {
        text: "No custom entries yet"
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        color: Theme.secondary
        font.pixelSize: Theme.calloutSize
        Layout.alignment: Qt.AlignHCenter
    }

    Text {
        text: "Type a hostname below, like myapp.test, then press return."
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        color: Theme.secondary
        font.pixelSize: Theme.captionSize
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignHCenter
        Layout.fillWidth: true
    }

    Item {
        implicitHeight: 28
    }
}
