import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Panels

/// A move of a price with a reported reason.
TableRow {
    id: line

    required property int index
    required property string letter
    required property string day
    required property string change
    required property bool rises
    required property string usual
    required property string reason
    required property string title
    required property int sourcing
    required property string sourcingLabel
    required property string outlet
    required property string detail
    required property string storyID

    implicitHeight: PageSizes.marketMoveRow

    contentItem: Item {
        Rectangle {
            id: box

            x: Theme.gridPadding
            y: Theme.space2
            width: Math.max(letterText.implicitWidth + Theme.space1, height)
            height: Theme.badge
            radius: Theme.radiusBadge
            visible: line.letter
            color: "transparent"
            border.width: Theme.line
            border.color: Theme.border

            DeskText {
                id: letterText
                anchors.centerIn: parent
                type: DeskText.MetaStrong
                text: line.letter
                Accessible.ignored: true
            }
        }
        DeskText {
            id: when

            x: Theme.gridPadding + PageSizes.marketLetterColumn
            y: Theme.space2
            width: PageSizes.marketDayColumn
            type: DeskText.Secondary
            color: Theme.text2
            text: line.day
            Accessible.ignored: true
        }
        DeskText {
            id: figure

            anchors.right: reasons.left
            anchors.rightMargin: PageSizes.columnGap
            y: Theme.space2
            type: DeskText.BaseMedium
            color: line.rises ? Theme.green : Theme.red
            text: line.change
            Accessible.ignored: true
        }
        DeskText {
            anchors.right: figure.right
            anchors.top: figure.bottom
            type: DeskText.Meta
            color: Theme.text3
            text: line.usual
            Accessible.ignored: true
        }
        Item {
            id: reasons

            x: when.x + when.width + PageSizes.marketMoveColumn + PageSizes.columnGap
            width: parent.width - x - Theme.gridPadding
            height: parent.height

            Badge {
                id: badge

                anchors.verticalCenter: headline.verticalCenter
                visible: text
                text: line.reason
            }
            DeskText {
                id: headline

                x: badge.visible ? badge.width + Theme.space2 : 0
                y: Theme.space2
                width: parent.width - x
                type: badge.visible ? DeskText.BaseMedium : DeskText.Base
                color: badge.visible ? Theme.text1 : Theme.text2
                text: line.title
                Accessible.ignored: true
            }
            Row {
                anchors.top: headline.bottom
                anchors.topMargin: Theme.focusRing
                width: parent.width
                spacing: Theme.space2

                SourcingBadge {
                    sourcing: line.sourcing
                    text: line.sourcingLabel
                }
                DeskText {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: text
                    type: DeskText.MetaMedium
                    text: line.outlet
                    Accessible.ignored: true
                }
                DeskText {
                    anchors.verticalCenter: parent.verticalCenter
                    width: Math.min(implicitWidth, reasons.width - x)
                    type: DeskText.Meta
                    color: Theme.text3
                    text: line.detail
                    Accessible.ignored: true
                }
            }
        }
    }
}
