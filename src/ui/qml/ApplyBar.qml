// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pinecove

// Shown while there are unapplied edits: discard them, or write them to /etc/hosts.
Rectangle {
    id: bar

    // Whether there are unapplied edits, and whether the change came from a row's toggle or
    // removal: only then does the bar rise or sink with the row's animation.
    property bool shown: false
    property bool followRow: false

    implicitHeight: layout.implicitHeight + 18
    color: Theme.alpha(Theme.orange, 0.08)
    visible: false
    transform: Translate {
        id: shift
    }
    Component.onCompleted: visible = shown
    onShownChanged: {
        entrance.stop();
        exit.stop();
        const animate = followRow && !Desktop.reduceMotion;
        opacity = 1;
        shift.y = 0;
        if (shown) {
            visible = true;
            if (animate)
                entrance.restart();
        } else if (animate) {
            exit.restart();
        } else {
            visible = false;
        }
    }

    EntranceAnimation {
        id: entrance

        target: bar
        shift: shift
    }

    SequentialAnimation {
        id: exit

        ParallelAnimation {
            NumberAnimation {
                target: bar
                property: "opacity"
                to: 0
                duration: Theme.motion(0.15)
            }

            NumberAnimation {
                target: shift
                property: "y"
                to: 8
                duration: Theme.motion(0.15)
                easing.type: Easing.InCubic
            }
        }

        PropertyAction {
            target: bar
            property: "visible"
            value: false
        }
    }

    RowLayout {
        id: layout

        anchors.fill: parent
        anchors.leftMargin: 14
        anchors.rightMargin: 14
        spacing: 10

        Rectangle {
            implicitWidth: 6
            implicitHeight: 6
            radius: 3
            color: Theme.orange
        }

        Text {
            text: "Unsaved changes"
            color: Theme.secondary
            font.pixelSize: Theme.captionSize
            font.weight: Font.Medium
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Item {
            Layout.fillWidth: true
        }

        AbstractButton {
            id: discardButton

            objectName: "discardButton"
            implicitWidth: implicitContentWidth
            implicitHeight: implicitContentHeight
            focusPolicy: Qt.TabFocus
            Accessible.name: "Discard"
            // Qt 6.4 does not route a screen reader's press to a Quick button by itself.
            Accessible.onPressAction: clicked()
            onClicked: Store.load()

            contentItem: Text {
                text: "Discard"
                color: Theme.secondary
                font.pixelSize: Theme.captionSize
                font.weight: Font.Medium
            }

            FocusRing {
                visible: discardButton.visualFocus
            }
        }

        AbstractButton {
            id: applyButton

            objectName: "applyButton"
            enabled: !Store.isApplying
            leftPadding: 12
            rightPadding: 12
            topPadding: 5
            bottomPadding: 5
            implicitWidth: implicitContentWidth + leftPadding + rightPadding
            implicitHeight: implicitContentHeight + topPadding + bottomPadding
            focusPolicy: Qt.TabFocus
            Accessible.name: Store.isApplying ? "Applying changes" : "Apply changes"
            Accessible.onPressAction: {
                if (enabled) // a screen reader's press is no way round a disabled button
                    clicked();
            }
            onClicked: Store.apply()
            ToolTip.visible: hovered
            ToolTip.text: Theme.applyTooltip
            ToolTip.delay: 500

            background: Rectangle {
                radius: height / 2
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

            contentItem: RowLayout {
                spacing: 5

                // All of the button's content is white, the spinner too.
                BusyIndicator {
                    objectName: "applySpinner"
                    visible: Store.isApplying
                    running: visible
                    implicitWidth: 10
                    implicitHeight: 10
                    padding: 0
                    palette.text: "white"
                    palette.dark: "white"
                }

                Text {
                    text: "Apply"
                    color: "white"
                    font.pixelSize: Theme.captionSize
                    font.weight: Font.DemiBold
                }
            }

            FocusRing {
                radius: height / 2 + 2
                visible: applyButton.visualFocus
            }
        }
    }
}
