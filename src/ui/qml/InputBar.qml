// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pinecove

// Where new mappings are typed: names alone map to 127.0.0.1, or an address and names. While
// the text parses, chips preview what Return will add.
ColumnLayout {
    id: bar

    property alias text: field.text
    readonly property var parsed: Store.preview(field.text)
    readonly property bool parses: parsed.ip !== undefined
    // What the chips show: the last text that parsed, kept while the row fades out.
    property var shownParse: ({})
    // Reads `parsed` itself: `parses` may not have caught up yet when this runs.
    onParsedChanged: {
        if (parsed.ip !== undefined)
            shownParse = parsed;
    }

    function addEntry() {
        if (parses && Store.add(field.text))
            field.text = "";
    }

    spacing: 6

    Flow {
        id: preview

        // Comes and goes with a fade while the space it takes grows or shrinks.
        objectName: "preview"
        visible: opacity > 0
        spacing: 5
        clip: true
        Layout.fillWidth: true
        Layout.leftMargin: 12
        Layout.rightMargin: 12
        Layout.topMargin: 12 * opacity
        Layout.preferredHeight: implicitHeight * opacity
        opacity: bar.parses ? 1 : 0

        Behavior on opacity  {
            NumberAnimation {
                duration: Theme.motion(0.15)
            }
        }

        Chip {
            objectName: "ipChip"
            text: bar.shownParse.ip ?? ""
            tint: Theme.teal
        }

        Repeater {
            model: bar.shownParse.hosts ?? []

            delegate: Chip {
                required property string modelData
                objectName: "hostChip"
                text: modelData
                tint: Theme.green
            }
        }
    }

    Rectangle {
        Layout.fillWidth: true
        Layout.leftMargin: 12
        Layout.rightMargin: 12
        Layout.topMargin: 12 * (1 - preview.opacity)
        Layout.bottomMargin: 12
        implicitHeight: fieldRow.implicitHeight + 16
        radius: 8
        color: Theme.alpha(Theme.label, 0.05)
        border.width: field.activeFocus ? 2 : 1
        border.color: field.activeFocus ? Theme.focus : bar.parses ? Theme.alpha(Theme.green, 0.4) : Theme.alpha(Theme.label, 0.08)

        RowLayout {
            id: fieldRow

            anchors.fill: parent
            anchors.leftMargin: 10
            anchors.rightMargin: 10
            spacing: 8

            Symbol {
                objectName: "plusSymbol"
                name: "plus"
                size: 11
                tint: bar.parses ? Theme.green : Theme.secondary
            }

            TextField {
                id: field

                objectName: "inputField"
                Layout.fillWidth: true
                placeholderText: "myapp.test  or  10.0.0.5 myapp.test"
                placeholderTextColor: Theme.tertiary
                color: Theme.primary
                font.pixelSize: Theme.calloutSize
                font.family: Theme.monoFamily
                background: null
                padding: 0
                selectByMouse: true
                Accessible.name: "New entry"
                onAccepted: bar.addEntry()
            }
        }
    }
}
