import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What happened, in full, and how it compares with the wire below it.
Column {
    id: head

    required property ActivityPageModel content

    leftPadding: Theme.rowText
    rightPadding: Theme.rowText
    topPadding: Theme.space4
    bottomPadding: Theme.space2
    spacing: Theme.space2

    readonly property real textWidth: width - leftPadding - rightPadding

    Item {
        width: head.textWidth
        height: kind.height

        DeskText {
            id: kind

            width: when.x - Theme.space2
            type: DeskText.SecondaryStrong
            text: head.content.chosenKind
        }
        DeskText {
            id: when

            anchors.right: parent.right
            type: DeskText.Secondary
            color: Theme.text3
            text: head.content.chosenWhen
        }
    }
    DeskText {
        width: head.textWidth
        lines: 4
        type: DeskText.Message
        text: head.content.chosenTitle
        Accessible.role: Accessible.Heading
    }
    DeskText {
        width: head.textWidth
        visible: text
        lines: 8
        type: DeskText.Base
        color: Theme.text2
        text: head.content.chosenDetail
    }
    DeskText {
        width: head.textWidth
        visible: text
        lines: 2
        type: DeskText.Secondary
        color: Theme.text2
        text: head.content.chosenChange
    }
    DeskText {
        width: head.textWidth
        visible: text
        lines: 3
        type: DeskText.Secondary
        color: Theme.text2
        text: head.content.why.text
    }
    Flow {
        width: head.textWidth
        visible: head.content.why.hasRule
        spacing: Theme.space3

        LinkText {
            type: DeskText.SecondaryMedium
            text: qsTr("Edit the rule")
            onClicked: head.content.why.editRule()
        }
        LinkText {
            visible: text
            type: DeskText.SecondaryMedium
            text: head.content.why.lessText
            onClicked: head.content.why.lessOfThis()
        }
        LinkText {
            type: DeskText.SecondaryMedium
            text: qsTr("Turn the rule off")
            onClicked: head.content.why.turnOff()
        }
    }
    Hairline {
        width: head.textWidth
    }
    DeskText {
        width: head.textWidth
        type: DeskText.MetaStrong
        color: Theme.text2
        text: qsTr("The wire of that hour")
        Accessible.role: Accessible.Heading
    }
    DeskText {
        width: head.textWidth
        lines: 2
        type: DeskText.Meta
        color: Theme.text3
        text: head.content.wireFact
    }
    DeskText {
        width: head.textWidth
        lines: 3
        type: DeskText.Secondary
        color: Theme.text2
        text: head.content.wireSentence
    }
}
