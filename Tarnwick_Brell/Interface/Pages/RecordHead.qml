import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Whose record it is, of what kind and how old, and what it says.
Column {
    id: head

    required property RecordsPageModel content

    leftPadding: Theme.rowText
    rightPadding: Theme.rowText
    topPadding: Theme.space4
    bottomPadding: Theme.space3
    spacing: Theme.space2

    readonly property real textWidth: width - leftPadding - rightPadding

    Item {
        width: head.textWidth
        height: Math.max(lead.height, badge.height)

        DeskText {
            id: lead

            width: Math.min(implicitWidth, when.x - (badge.visible ? badge.width + Theme.space2 : 0) - Theme.space2)
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.SecondaryStrong
            text: head.content.sheetLead
        }
        Badge {
            id: badge

            anchors.left: lead.right
            anchors.leftMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            visible: text
            text: head.content.sheetBadge
        }
        DeskText {
            anchors.left: badge.visible ? badge.right : lead.right
            anchors.leftMargin: Theme.space2
            width: when.x - x - Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            visible: width > Theme.space4
            type: DeskText.Secondary
            color: Theme.text3
            text: head.content.sheetNote
        }
        DeskText {
            id: when

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            color: Theme.text3
            text: head.content.sheetWhen
        }
    }
    DeskText {
        width: head.textWidth
        lines: 6
        type: DeskText.Title
        text: head.content.sheetTitle
        Accessible.role: Accessible.Heading
    }
}
