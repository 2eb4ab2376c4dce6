import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Pinecove

// Shown while there are unapplied edits: discard them, or write them to /etc/hosts.
Rectangle {
    id: bar

    implicitHeight: layout.implicitHeight + 18
    color: Theme.alpha(Theme.orange, 0.08)
    transform: Translate {
        id: shift
    }
    onVisibleChanged: {
        if (visible)
            entrance.restart();
    }

    EntranceAnimation {
        id: entrance

        target: bar
        shift: shift
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
        }

        Item {
            Layout.fillWidth: true
        }

        AbstractButton {
            objectName: "discardButton"
            implicitWidth: discardText.implicitWidth
            implicitHeight: discardText.implicitHeight
            Accessible.name: "Discard"
            onClicked: Store.load()

            contentItem: Text {
                id: discardText

                text: "Discard"
                color: Theme.secondary
                font.pixelSize: Theme.captionSize
                font.weight: Font.Medium
            }
        }

        AbstractButton {
            id: applyButton

            objectName: "applyButton"
            enabled: !Store.isApplying
            implicitWidth: applyLabel.implicitWidth + 24
            implicitHeight: applyLabel.implicitHeight + 10
            Accessible.name: Store.isApplying ? "Applying changes" : "Apply changes"
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

            contentItem: Item {
                RowLayout {
                    id: applyLabel

                    anchors.centerIn: parent
                    spacing: 5

                    BusyIndicator {
                        objectName: "applySpinner"
                        visible: Store.isApplying
                        running: visible
                        implicitWidth: 10
                        implicitHeight: 10
                        padding: 0
                    }

                    Text {
                        text: "Apply"
                        color: "white"
                        font.pixelSize: Theme.captionSize
                        font.weight: Font.DemiBold
                    }
                }
            }
        }
    }
}
