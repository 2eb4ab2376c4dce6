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
        sourceSize: Qt.size(90, 90)
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
        }
    }

    Item {
        Layout.fillWidth: true
    }

    AbstractButton {
        id: moreButton

        objectName: "moreActions"
        implicitWidth: 18
        implicitHeight: 18
        Accessible.name: "More actions"
        onClicked: menu.open()

        contentItem: Symbol {
            name: "ellipsis.circle"
            size: 14
            tint: Theme.secondary
        }

        Menu {
            id: menu

            objectName: "moreActionsMenu"
            y: moreButton.height + 4

            MenuItem {
                text: "Refresh"
                onTriggered: Store.load()
            }

            MenuItem {
                text: "Open hosts file in editor"
                onTriggered: Store.openHostsInEditor()
            }

            MenuItem {
                text: Theme.revealBackupsText
                onTriggered: Store.revealBackups()
            }

            MenuSeparator {
            }

            MenuItem {
                text: "Quit Pinecove"
                onTriggered: Store.quit()
            }
        }
    }
}
