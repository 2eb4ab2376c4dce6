// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts
import Pinecove

// The system's own mappings (localhost, broadcasthost): counted, collapsed by default, locked.
ColumnLayout {
    id: section

    property bool expanded: false
    property real topPadding: 0

    // Its toggle took the keyboard: the list brings it into view.
    signal toggleFocused
    // Shift+Tab on the toggle: the rows above come before it, when there are any.
    signal backtabbed(var event)

    spacing: 2
    visible: Store.systemEntries.count > 0

    Item {
        id: toggle

        function flip() {
            section.expanded = !section.expanded;
        }

        objectName: "systemToggle"
        Layout.fillWidth: true
        Layout.topMargin: section.topPadding
        implicitHeight: header.implicitHeight + 14
        activeFocusOnTab: true
        Accessible.role: Accessible.Button
        Accessible.name: "System defaults, " + Store.systemEntries.count
        Accessible.onPressAction: flip()
        Keys.onSpacePressed: flip()
        Keys.onReturnPressed: flip()
        Keys.onBacktabPressed: event => section.backtabbed(event)
        onActiveFocusChanged: {
            if (activeFocus)
                section.toggleFocused();
        }

        TapHandler {
            onTapped: toggle.flip()
        }

        FocusRing {
            inset: 1
            radius: 8
            visible: toggle.activeFocus
        }

        RowLayout {
            id: header

            anchors.fill: parent
            anchors.leftMargin: 10
            anchors.rightMargin: 10
            spacing: 6

            Symbol {
                name: "chevron.right"
                size: 9
                tint: Theme.secondary
                rotation: section.expanded ? 90 : 0

                Behavior on rotation  {
                    NumberAnimation {
                        duration: Theme.motion(0.2)
                        easing.type: Easing.OutCubic
                    }
                }
            }

            Text {
                text: "System defaults"
                color: Theme.secondary
                font.pixelSize: Theme.captionSize
                font.weight: Font.Medium
            }

            Text {
                text: Store.systemEntries.count
                color: Theme.tertiary
                font.pixelSize: Theme.captionSize
                font.weight: Font.Medium
            }

            Item {
                Layout.fillWidth: true
            }

            Symbol {
                name: "lock.fill"
                size: 9
                tint: Theme.tertiary
            }
        }
    }

    // The rows open and close with the chevron's spring: the clip grows to their height.
    Item {
        id: rowsClip

        Layout.fillWidth: true
        Layout.preferredHeight: section.expanded ? rows.implicitHeight : 0
        visible: Layout.preferredHeight > 0
        clip: true
        opacity: section.expanded ? 1 : 0

        Behavior on Layout.preferredHeight  {
            NumberAnimation {
                duration: Theme.motion(0.2)
                easing.type: Easing.OutCubic
            }
        }

        Behavior on opacity  {
            NumberAnimation {
                duration: Theme.motion(0.2)
            }
        }

        ColumnLayout {
            id: rows

            width: rowsClip.width
            spacing: 2

            Repeater {
                model: section.expanded || rowsClip.visible ? Store.systemEntries : null

                delegate: EntryRow {
                    Layout.fillWidth: true
                }
            }
        }
    }
}
