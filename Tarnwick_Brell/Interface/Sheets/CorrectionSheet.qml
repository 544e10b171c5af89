pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What the rules got wrong about a story. A choice is laid over their answer at once.
Sheet {
    id: sheet

    required property CorrectionSheetModel content
    property int part: 0

    title: qsTr("Correct this story")
    implicitWidth: Theme.smallSheetWidth
    onOpened: parts.forceActiveFocus()

    foot: DeskButton {
        inSheet: true
        text: qsTr("Cancel")
        onClicked: sheet.close()
    }
    footStart: DeskText {
        type: DeskText.Meta
        color: Theme.text3
        text: qsTr("Yours is laid over the rules’ answer and can be taken back.")
    }

    Column {
        width: parent ? parent.width : 0
        spacing: Theme.space3
        Keys.onPressed: event => {
            const label = event.key - Qt.Key_1;
            event.accepted = sheet.part === 0 && event.modifiers === Qt.NoModifier && label >= 0 && label < 5;
            if (event.accepted)
                sheet.content.chooseSourcing(label);
        }

        DeskText {
            width: parent.width
            type: DeskText.BaseMedium
            lines: 2
            text: sheet.content.title
        }
        SegmentedControl {
            id: parts

            label: qsTr("What is wrong")
            model: [qsTr("Label"), qsTr("News"), qsTr("Who was first"), qsTr("Credit")]
            currentIndex: sheet.part
            onActivated: index => sheet.part = index
        }
        CorrectionLabels {
            width: parent.width
            visible: sheet.part === 0
            content: sheet.content
        }
        CorrectionNews {
            width: parent.width
            visible: sheet.part === 1
            content: sheet.content
        }
        CorrectionFirst {
            width: parent.width
            visible: sheet.part === 2
            content: sheet.content
        }
        CorrectionCredit {
            width: parent.width
            visible: sheet.part === 3
            content: sheet.content
        }
        DeskField {
            width: parent.width
            outlined: true
            label: qsTr("A note, for the list of corrections")
            placeholderText: qsTr("Note (optional)")
            text: sheet.content.note
            onTextEdited: sheet.content.note = text
        }
        DeskText {
            width: parent.width
            visible: text
            lines: 3
            type: DeskText.Secondary
            color: Theme.red
            text: sheet.content.failure
        }
    }
}
