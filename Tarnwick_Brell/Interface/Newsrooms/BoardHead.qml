import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Which newsroom the board shows, and what time it is.
Item {
    id: head

    required property BoardModel content

    implicitHeight: time.implicitHeight

    Symbol {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        name: head.content.symbol
        size: Theme.boardIcon
        color: Theme.accentText
    }
    DeskText {
        anchors.left: mark.right
        anchors.leftMargin: Theme.space4
        anchors.right: refreshed.left
        anchors.rightMargin: Theme.space4
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Heading
        text: head.content.newsroom.title
        Accessible.role: Accessible.Heading
    }
    DeskText {
        id: refreshed

        anchors.right: time.left
        anchors.rightMargin: Theme.space8
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Meta
        text: head.content.refreshed
        color: Theme.text3
    }
    DeskText {
        id: time

        anchors.right: day.left
        anchors.rightMargin: Theme.space4
        type: DeskText.Title
        text: head.content.time
    }
    DeskText {
        id: day

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Meta
        text: head.content.day
        color: Theme.text2
    }
}
