// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pinecove

// App icon, name, a one-line summary, and the "More actions" menu.
RowLayout {
    id: header

    spacing: 10

    Image {
        source: "qrc:/qt/qml/Pinecove/symbols/appicon.svg"
        sourceSize.width: 90
        sourceSize.height: 90
        Layout.preferredWidth: 30
        Layout.preferredHeight: 30
        smooth: true
        Accessible.ignored: true
    }

    ColumnLayout {
        spacing: 1

        Text {
            text: "Pinecove"
            color: Theme.primary
            font.pixelSize: Theme.headlineSize
            font.bold: true
        }

        Text {
            objectName: "subtitle"
            text: Store.subtitle
            color: Theme.secondary
            font.pixelSize: Theme.captionSize
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    Item {
        Layout.fillWidth: true
    }

    AbstractButton {
        id: moreButton

        readonly property alias menu: menu

        objectName: "moreActions"
        implicitWidth: 18
        implicitHeight: 18
        focusPolicy: Qt.TabFocus
        Accessible.name: "More actions"
        // Qt 6.4 does not route a screen reader's press to a Quick button by itself.
        Accessible.onPressAction: clicked()
        onClicked: menu.open()

        contentItem: Symbol {
            name: "ellipsis.circle"
            size: 14
            tint: Theme.secondary
        }

        FocusRing {
            radius: width / 2 + 2
            visible: moreButton.visualFocus
        }

        // Kept inside the panel's window: it opens below the button and is moved left, never
        // cut at the window's edge.
        PanelMenu {
            id: menu

            objectName: "moreActionsMenu"
            y: moreButton.height + 4

            MenuAction {
                text: "Refresh"
                hint: Theme.refreshHint
                onTriggered: Store.load()
            }

            MenuAction {
                text: "Open hosts file in editor"
                onTriggered: Store.openHostsInEditor()
            }

            MenuAction {
                text: Theme.revealBackupsText
                onTriggered: Store.revealBackups()
            }

            MenuSeparator {
                contentItem: Rectangle {
                    implicitHeight: 1
                    color: Theme.separator
                }
            }

            MenuAction {
                text: "Quit Pinecove"
                hint: Theme.quitHint
                onTriggered: Store.quit()
            }
        }
    }
}
