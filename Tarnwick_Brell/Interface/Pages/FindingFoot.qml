pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The polls that bear the finding out, the button that copies it, and the stories of that hour
/// that share its words.
Column {
    id: foot

    required property BackendPageModel content
    readonly property real textWidth: width - leftPadding - rightPadding

    leftPadding: Theme.readerPadding
    rightPadding: Theme.readerPadding
    topPadding: Theme.space3
    bottomPadding: Theme.space6
    spacing: Theme.space3
    visible: content.hasFinding

    DeskText {
        width: foot.textWidth
        visible: text
        lines: 3
        type: DeskText.Secondary
        color: Theme.text3
        text: foot.content.noLines
    }
    DeskText {
        width: foot.textWidth
        lines: 3
        type: DeskText.Secondary
        color: Theme.text2
        text: foot.content.chosenPolls
    }
    DeskText {
        width: foot.textWidth
        type: DeskText.Secondary
        color: Theme.text3
        text: qsTr("Seen by this machine.")
    }
    DeskButton {
        symbol: "doc.on.doc"
        text: qsTr("Copy lines, address and times")
        onClicked: foot.content.copyChosen()
    }
    DeskText {
        topPadding: Theme.space3
        type: DeskText.MetaStrong
        color: Theme.text2
        text: qsTr("Seen together with")
        Accessible.role: Accessible.Heading
    }
    DeskText {
        width: foot.textWidth
        lines: 2
        type: DeskText.Secondary
        color: Theme.text3
        text: foot.content.wireSentence
    }
    Column {
        width: foot.textWidth

        Repeater {
            // A few at most.
            model: foot.content.wire

            ActivityWireLine {
                width: foot.textWidth
                activeFocusOnTab: true
                listFocused: activeFocus
                isCurrent: activeFocus
                onChosen: forceActiveFocus()
                onOpened: foot.content.openWireRow(index)
                Keys.onReturnPressed: foot.content.openWireRow(index)
            }
        }
    }
}
