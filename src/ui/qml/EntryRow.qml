// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pinecove

// One mapping in the list: status dot, first name with a "+N" badge, address. A click toggles
// it, the trash button (on hover) and the context menu remove it; system rows are dimmed and
// locked.
FocusScope {
    id: row

    required property int index
    required property string entryId
    required property string title
    required property string badge
    required property string badgeTooltip
    required property string address
    required property bool enabled
    required property bool system
    required property string accessibleLabel
    required property string accessibleValue
    required property string accessibleHint

    // Tab or Shift+Tab on the row: focus leaves the list, forward or back.
    signal tabbedOut(bool forward)

    readonly property bool hovered: hover.hovered
    readonly property alias contextMenu: contextMenu

    function toggle() {
        if (system)
            return;
        asRowEdit(() => Store.toggle(entryId));
    }

    function remove() {
        if (system)
            return;
        asRowEdit(() => Store.remove(entryId));
    }

    // Lets the apply bar know that this edit came from a row, whose animation it follows.
    function asRowEdit(edit) {
        const list = ListView.view;
        if (list)
            list.rowEditing = true;
        edit();
        if (list)
            list.rowEditing = false;
    }

    implicitHeight: layout.implicitHeight + 14
    opacity: system ? 0.75 : 1

    HoverHandler {
        id: hover
    }

    Rectangle {
        anchors.fill: parent
        radius: 8
        color: row.hovered ? Theme.alpha(Theme.label, 0.06) : "transparent"
    }

    FocusRing {
        objectName: "focusRing"
        inset: 1
        radius: 8
        visible: mainControl.activeFocus
    }

    RowLayout {
        id: layout

        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        anchors.topMargin: 7
        anchors.bottomMargin: 7
        spacing: 8

        EntryRowControl {
            id: mainControl

            objectName: "mainControl"
            focus: true
            // As the list's current row, keyboard focus follows the row when a toggle moves it
            // to its sorted place, and Up and Down move between rows.
            onActiveFocusChanged: {
                if (activeFocus && row.ListView.view)
                    row.ListView.view.currentIndex = row.index;
            }
            Layout.fillWidth: true
            implicitHeight: content.implicitHeight
            label: row.accessibleLabel
            value: row.accessibleValue
            hint: row.accessibleHint
            locked: row.system
            Accessible.role: Accessible.Button
            Accessible.name: row.accessibleLabel
            Accessible.description: row.accessibleHint
            onToggleRequested: row.toggle()
            onRemoveRequested: row.remove()
            Keys.onSpacePressed: row.toggle()
            Keys.onReturnPressed: row.toggle()
            Keys.onDeletePressed: row.remove()
            // The list is one stop in the Tab order; Up and Down move between its rows.
            Keys.onTabPressed: row.tabbedOut(true)
            Keys.onBacktabPressed: row.tabbedOut(false)

            TapHandler {
                enabled: !row.system
                onTapped: {
                    const list = row.ListView.view;
                    if (!list || list.acceptsClickOn(row.entryId))
                        row.toggle();
                }
            }

            RowLayout {
                id: content

                anchors.fill: parent
                spacing: 11

                Item {
                    implicitWidth: 12
                    implicitHeight: 12

                    StatusDot {
                        anchors.centerIn: parent
                        on: row.enabled
                    }
                }

                ColumnLayout {
                    spacing: 1
                    Layout.fillWidth: true

                    RowLayout {
                        spacing: 5
                        Layout.fillWidth: true

                        // Never wider than it needs, so a title that fits is never cut; a long
                        // one gives way before the badge does.
                        Text {
                            objectName: "titleText"
                            text: row.title
                            color: row.enabled ? Theme.primary : Theme.secondary
                            font.pixelSize: Theme.calloutSize
                            font.weight: Font.Medium
                            elide: Text.ElideRight
                            Layout.fillWidth: true
                            Layout.maximumWidth: Math.ceil(implicitWidth)
                        }

                        Rectangle {
                            id: badgeChip

                            objectName: "badge"
                            visible: row.badge !== ""
                            implicitWidth: badgeText.implicitWidth + 8
                            implicitHeight: badgeText.implicitHeight + 2
                            Layout.minimumWidth: implicitWidth
                            radius: height / 2
                            color: Theme.alpha(Theme.label, 0.08)

                            Text {
                                id: badgeText

                                anchors.centerIn: parent
                                text: row.badge
                                color: Theme.secondary
                                font.pixelSize: 9
                                font.weight: Font.DemiBold
                            }

                            HoverHandler {
                                id: badgeHover
                            }

                            ToolTip.visible: badgeHover.hovered
                            ToolTip.text: row.badgeTooltip
                            ToolTip.delay: 500
                        }

                        Item {
                            Layout.fillWidth: true
                        }
                    }

                    Text {
                        objectName: "addressText"
                        text: row.address
                        color: Theme.secondary
                        font.pixelSize: Theme.captionSize
                        font.family: Theme.monoFamily
                        elide: Text.ElideRight
                        Layout.fillWidth: true
                    }
                }
            }
        }

        Symbol {
            visible: row.system
            name: "lock.fill"
            size: 10
            tint: Theme.secondary
            opacity: row.hovered ? 1 : 0.6
        }

        AbstractButton {
            id: trash

            objectName: "removeButton"
            visible: !row.system && row.hovered
            focusPolicy: Qt.NoFocus // the Delete key covers it
            implicitWidth: 18
            implicitHeight: 18
            Accessible.ignored: true // the row's "Remove" action covers it
            onClicked: row.remove()
            ToolTip.visible: hovered
            ToolTip.text: "Remove entry"
            ToolTip.delay: 500

            contentItem: Symbol {
                name: "trash"
                size: 11
                tint: Theme.secondary
            }
        }
    }

    TapHandler {
        acceptedButtons: Qt.RightButton
        enabled: !row.system
        onTapped: contextMenu.popup()
    }

    PanelMenu {
        id: contextMenu

        objectName: "contextMenu"

        MenuAction {
            text: row.enabled ? "Turn Off" : "Turn On"
            onTriggered: row.toggle()
        }

        MenuAction {
            text: "Remove"
            destructive: true
            onTriggered: row.remove()
        }
    }
}
