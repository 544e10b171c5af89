import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// One story of the wire.
T.ItemDelegate {
    id: row

    required property StoryActions storyActions
    required property int index
    required property string storyID
    required property string source
    required property string destination
    required property string age
    required property string kindLabel
    required property int sourcing
    required property string sourcingLabel
    required property string title
    required property string excerpt
    required property string picture
    required property bool isRead
    required property bool isSaved
    required property string spokenText

    /// The list has the keyboard's focus.
    property bool listFocused: false
    property bool isCurrent: false

    signal chosen
    signal opened
    signal menuWanted(x: real, y: real)

    implicitHeight: Math.max(text.y + text.implicitHeight, thumbnail.visible ? thumbnail.y + thumbnail.height : 0) + Theme.rowPaddingBottom
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    onClicked: chosen()
    onDoubleClicked: opened()
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText
    Accessible.selected: isCurrent
    Accessible.onPressAction: chosen()

    Drag.active: dragging.active
    Drag.dragType: Drag.Automatic
    Drag.supportedActions: Qt.CopyAction
    Drag.mimeData: dragging.active ? storyActions.dragData(storyID) : ({})

    // Upwards and downwards the list scrolls.
    DragHandler {
        id: dragging

        target: null
        yAxis.enabled: false
        acceptedDevices: PointerDevice.Mouse
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => row.menuWanted(eventPoint.position.x, eventPoint.position.y)
    }

    background: Rectangle {
        color: row.isCurrent ? (row.listFocused ? Theme.selected : Theme.selectedIdle)
                             : row.down ? Theme.press : row.hovered ? Theme.hover : Theme.surface

        Rectangle {
            width: Theme.selectionBar
            height: parent.height
            visible: row.isCurrent
            color: row.listFocused ? Theme.accent : Theme.edge
        }
        Hairline {
            anchors.bottom: parent.bottom
            x: Theme.rowText
            width: parent.width - x
        }
    }

    contentItem: Item {
        UnreadDot {
            x: Theme.rowText / 2 - width / 2
            y: Theme.rowPaddingTop + (Theme.badge - height) / 2
            visible: !row.isRead
        }

        Column {
            id: text

            readonly property real besidePicture: width - (thumbnail.visible ? thumbnail.width + Theme.space3 : 0)

            x: Theme.rowText
            y: Theme.rowPaddingTop
            width: parent.width - Theme.rowText - Theme.rowEnd

            Item {
                width: parent.width
                height: Theme.badge

                Row {
                    id: names

                    spacing: Theme.badgeGap
                    width: labels.x - Theme.space2

                    DeskText {
                        id: sourceText

                        type: DeskText.MetaMedium
                        color: Theme.text2
                        text: row.source
                        width: Math.min(implicitWidth, parent.width - (target.visible ? Theme.space8 : 0))
                    }
                    Symbol {
                        visible: target.visible
                        anchors.verticalCenter: parent.verticalCenter
                        name: "arrow.right"
                        size: Theme.iconInMeta
                        color: Theme.text3
                    }
                    DeskText {
                        id: target

                        visible: row.destination !== ""
                        type: DeskText.MetaMedium
                        color: Theme.text2
                        text: row.destination
                        width: Math.min(implicitWidth, Math.max(0, names.width - x))
                    }
                }
                Row {
                    id: labels

                    anchors.right: ageText.left
                    spacing: Theme.badgeGap

                    Symbol {
                        visible: row.isSaved
                        anchors.verticalCenter: parent.verticalCenter
                        name: "bookmark"
                        size: Theme.iconInMeta
                        color: Theme.text2
                    }
                    Badge {
                        visible: row.kindLabel !== ""
                        text: row.kindLabel
                    }
                    SourcingBadge {
                        sourcing: row.sourcing
                        text: row.sourcingLabel
                    }
                }
                DeskText {
                    id: ageText

                    anchors.right: parent.right
                    width: Math.max(Theme.ageColumn, implicitWidth + Theme.space2)
                    horizontalAlignment: Text.AlignRight
                    type: DeskText.Meta
                    color: Theme.text3
                    text: row.age
                }
            }
            Item {
                width: Theme.line
                height: Theme.step3
            }
            DeskText {
                width: text.besidePicture
                type: row.isRead ? DeskText.Base : DeskText.BaseStrong
                color: row.isRead ? Theme.text2 : Theme.text1
                lines: 2
                text: row.title
            }
            Item {
                width: Theme.line
                height: Theme.step1
                visible: excerptText.visible
            }
            DeskText {
                id: excerptText

                visible: row.excerpt !== ""
                width: text.besidePicture
                type: DeskText.Secondary
                color: row.isRead ? Theme.text3 : Theme.text2
                lines: Theme.excerptLines
                text: row.excerpt
            }
        }
        StoryPicture {
            id: thumbnail

            // Below the line of names and badges.
            x: parent.width - width - Theme.rowEnd
            y: Theme.rowPaddingTop + Theme.badge + 2 * Theme.step3
            width: Theme.thumbnailWidth
            height: Theme.thumbnailHeight
            visible: row.picture !== "" && Theme.showsPictures
            picture: visible ? row.picture : ""
        }
    }
}
