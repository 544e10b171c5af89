import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// A row of the list of clusters: a cluster, a story that nobody else has, or a story of the open
/// cluster above.
T.ItemDelegate {
    id: row

    required property StoryActions storyActions
    required property int index
    required property string storyID
    required property string title
    required property bool isRead
    required property bool isMember
    required property bool canOpen
    required property bool isOpen
    required property string outletCount
    required property string outletLabel
    required property string outlet
    required property string lead
    required property int sourcing
    required property string sourcingLabel
    required property string time
    required property string growth
    required property bool isFirst
    required property string spokenText

    /// The list has the keyboard's focus.
    property bool listFocused: false
    property bool isCurrent: false

    signal chosen
    signal toggled
    signal opened
    signal menuWanted(x: real, y: real)

    implicitHeight: isMember ? Theme.tableRow : Theme.clusterRow
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    onClicked: {
        chosen();
        if (canOpen)
            toggled();
    }
    onDoubleClicked: opened()
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText
    Accessible.description: canOpen ? (isOpen ? qsTr("Open, left closes it") : qsTr("Closed, right opens it")) : ""
    Accessible.selected: isCurrent
    Accessible.onPressAction: clicked()

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
            visible: !row.isMember
            x: Theme.clusterText
            width: parent.width - x
        }
    }

    contentItem: Item {
        UnreadDot {
            x: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            visible: !row.isRead
        }

        Item {
            anchors.fill: parent
            visible: !row.isMember

            DeskText {
                id: count

                y: Theme.rowPaddingTop
                width: Theme.clusterText - Theme.space3
                horizontalAlignment: Text.AlignRight
                type: DeskText.Heading
                text: row.outletCount
            }
            DeskText {
                anchors.top: count.bottom
                width: count.width
                horizontalAlignment: Text.AlignRight
                type: DeskText.Meta
                color: Theme.text3
                text: row.outletLabel
            }
            DeskText {
                id: headline

                x: Theme.clusterText
                y: Theme.rowPaddingTop
                width: age.x - x - Theme.space2
                type: row.isRead ? DeskText.Base : DeskText.BaseStrong
                color: row.isRead ? Theme.text2 : Theme.text1
                text: row.title
            }
            DeskText {
                id: age

                anchors.right: fold.left
                anchors.rightMargin: Theme.space2
                anchors.baseline: headline.baseline
                type: DeskText.Meta
                color: Theme.text3
                text: row.time
            }
            Symbol {
                id: fold

                anchors.right: parent.right
                anchors.rightMargin: Theme.rowEnd
                anchors.verticalCenter: headline.verticalCenter
                opacity: row.canOpen ? 1 : 0
                name: row.isOpen ? "chevron.down" : "chevron.right"
                size: Theme.iconInMeta
                color: Theme.text3
            }
            Row {
                x: Theme.clusterText
                anchors.top: headline.bottom
                anchors.topMargin: Theme.step3
                spacing: Theme.badgeGap

                SourcingBadge {
                    sourcing: row.sourcing
                    text: row.sourcingLabel
                }
                DeskText {
                    width: Math.min(implicitWidth, headline.width / 2)
                    type: DeskText.SecondaryMedium
                    color: Theme.text2
                    text: row.outlet
                }
                DeskText {
                    width: Math.max(0, Math.min(implicitWidth, grown.x - parent.x - x - Theme.space2))
                    type: DeskText.Secondary
                    color: Theme.text3
                    text: row.lead
                }
            }
            DeskText {
                id: grown

                anchors.right: age.right
                anchors.top: headline.bottom
                anchors.topMargin: Theme.step3
                type: DeskText.Meta
                color: Theme.green
                text: row.growth
            }
        }

        Item {
            anchors.fill: parent
            anchors.leftMargin: Theme.clusterText
            anchors.rightMargin: Theme.rowEnd
            visible: row.isMember

            DeskText {
                id: timeText

                anchors.verticalCenter: parent.verticalCenter
                width: Math.max(Theme.clusterTime, implicitWidth)
                type: DeskText.Meta
                color: Theme.text3
                text: row.time
            }
            DeskText {
                id: outletText

                anchors.left: timeText.right
                anchors.leftMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                width: Theme.timelineOutlet
                type: row.isRead ? DeskText.Secondary : DeskText.SecondaryStrong
                color: row.isRead ? Theme.text2 : Theme.text1
                text: row.outlet
            }
            DeskText {
                anchors.left: outletText.right
                anchors.leftMargin: Theme.space2
                anchors.right: badge.left
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Secondary
                color: Theme.text2
                text: row.title
            }
            SourcingBadge {
                id: badge

                anchors.right: leadText.left
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                sourcing: row.sourcing
                text: row.sourcingLabel
            }
            DeskText {
                id: leadText

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                width: Math.max(Theme.ageColumn, implicitWidth)
                horizontalAlignment: Text.AlignRight
                type: row.isFirst ? DeskText.MetaStrong : DeskText.Meta
                color: row.isFirst ? Theme.text1 : Theme.text3
                text: row.lead
            }
        }
    }
}
