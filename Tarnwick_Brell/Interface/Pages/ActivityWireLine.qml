import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Panels

/// A story of the hours around a signal, or the signal itself; those that share words lie on a line.
Item {
    id: line

    required property int index
    required property string heading
    required property string time
    required property string outlet
    required property string title
    required property int sourcing
    required property string sourcingLabel
    required property string storyID
    required property bool isSignal
    required property bool isShared
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false

    signal chosen
    signal opened

    implicitHeight: group.height + Theme.tableRow

    SectionLabel {
        id: group

        width: parent.width
        height: line.heading ? implicitHeight : 0
        visible: line.heading
        start: Theme.rowText
        text: line.heading
    }
    TableRow {
        y: group.height
        width: parent.width
        height: Theme.tableRow
        hasLine: false
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            DeskText {
                id: time

                x: Theme.rowText
                width: PageSizes.logTime
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Meta
                color: Theme.text3
                text: line.time
                Accessible.ignored: true
            }
            Item {
                id: mark

                anchors.left: time.right
                width: PageSizes.logSymbol
                height: parent.height

                Hairline {
                    vertical: true
                    visible: line.isShared
                    anchors.horizontalCenter: parent.horizontalCenter
                    height: parent.height
                    color: Theme.border
                }
                Rectangle {
                    anchors.centerIn: parent
                    visible: line.isShared
                    width: line.isSignal ? Theme.space2 : Theme.markSquare
                    height: width
                    radius: width / 2
                    color: line.isSignal ? Theme.accent : Theme.surface
                    border.width: line.isSignal ? 0 : Theme.markRing
                    border.color: Theme.edge
                }
            }
            DeskText {
                id: outlet

                anchors.left: mark.right
                width: Theme.timelineOutlet
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.SecondaryMedium
                color: line.isSignal ? Theme.accentText : Theme.text1
                text: line.outlet
                Accessible.ignored: true
            }
            DeskText {
                anchors.left: outlet.right
                anchors.leftMargin: Theme.space2
                anchors.right: badge.left
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                type: line.isSignal ? DeskText.SecondaryMedium : DeskText.Secondary
                color: line.isSignal ? Theme.text1 : Theme.text2
                text: line.title
                Accessible.ignored: true
            }
            SourcingBadge {
                id: badge

                anchors.right: parent.right
                anchors.rightMargin: Theme.rowEnd
                anchors.verticalCenter: parent.verticalCenter
                width: visible ? implicitWidth : 0
                sourcing: line.sourcing
                text: line.sourcingLabel
            }
        }
    }
}
