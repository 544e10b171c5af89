import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The polls that bear the finding out, and the button that copies it.
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
}
