// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pinecove

// The whole panel: header, lists, error banner, apply bar and input bar on a translucent,
// rounded backdrop, 360 wide.
Item {
    id: panel

    property alias systemExpanded: entryList.systemExpanded
    property alias input: inputBar.text

    // The host calls this each time the panel is shown: pick up other programs' edits to the
    // file, but never drop the user's own.
    function appeared() {
        Store.reloadIfClean();
    }

    implicitWidth: 360
    implicitHeight: column.implicitHeight
    width: 360

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: Theme.panelFill
        border.width: 1
        border.color: Theme.panelEdge
    }

    ColumnLayout {
        id: column

        width: parent.width
        spacing: 0

        PanelHeader {
            Layout.fillWidth: true
            Layout.leftMargin: 14
            Layout.rightMargin: 14
            Layout.topMargin: 12
            Layout.bottomMargin: 12
        }

        Separator {
            Layout.fillWidth: true
        }

        EntryList {
            id: entryList

            objectName: "entryList"
            Layout.fillWidth: true
            Layout.preferredHeight: implicitHeight
        }

        ErrorBanner {
            objectName: "errorBanner"
            visible: Store.hasError
            message: Store.lastError
            Layout.fillWidth: true
        }

        ApplyBar {
            objectName: "applyBar"
            shown: Store.isDirty
            followRow: entryList.rowEditing
            Layout.fillWidth: true
        }

        Separator {
            Layout.fillWidth: true
        }

        InputBar {
            id: inputBar

            objectName: "inputBar"
            Layout.fillWidth: true
        }
    }

    Shortcut {
        sequence: "Ctrl+R"
        onActivated: Store.load()
    }

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: Store.quit()
    }

    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        enabled: Store.isDirty && !Store.isApplying
        onActivated: Store.apply()
    }
}
