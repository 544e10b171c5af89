import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The fact, where and when it was seen, what it can mean, and the headings of the two states.
Column {
    id: head

    required property BackendPageModel content
    readonly property real textWidth: width - leftPadding - rightPadding
    readonly property bool hasMeaning: content.chosenCan !== ""

    leftPadding: Theme.readerPadding
    rightPadding: Theme.readerPadding
    topPadding: Theme.space4
    spacing: Theme.space3

    Item {
        width: head.textWidth
        height: Math.max(firmness.height, when.height)
        visible: head.content.hasFinding

        Badge {
            id: firmness

            anchors.verticalCenter: parent.verticalCenter
            kind: Badge.OnRecord
            softGround: true
            text: qsTr("Found by us in Apple’s data")
        }
        DeskText {
            id: when

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            color: Theme.text3
            text: head.content.chosenWhen
        }
    }
    DeskText {
        width: head.textWidth
        lines: 4
        type: DeskText.Title
        text: head.content.chosenTitle
        Accessible.role: Accessible.Heading
    }
    DeskText {
        width: head.textWidth
        lines: 8
        color: Theme.text2
        text: head.content.chosenSight
    }
    Row {
        visible: head.hasMeaning
        spacing: Theme.space4

        FindingNote {
            id: can

            width: (head.textWidth - Theme.space4) / 2
            height: Math.max(implicitHeight, cannot.implicitHeight)
            title: qsTr("What it can mean")
            text: head.content.chosenCan
        }
        FindingNote {
            id: cannot

            width: can.width
            height: can.height
            title: qsTr("What it doesn’t say")
            text: head.content.chosenCannot
        }
    }
    Item {
        width: head.textWidth
        height: Theme.sectionLabel
        visible: head.content.hasFinding

        DeskText {
            width: parent.width / 2 - Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.MetaStrong
            color: Theme.text2
            text: head.content.beforeTitle
        }
        DeskText {
            x: parent.width / 2 + Theme.space2
            width: parent.width / 2 - Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.MetaStrong
            color: Theme.text2
            text: head.content.afterTitle
        }
    }
}
