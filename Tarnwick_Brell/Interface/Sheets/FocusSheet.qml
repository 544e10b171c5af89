import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The words that the panels of a newsroom follow.
Sheet {
    id: sheet

    required property FocusSheetModel content

    title: qsTr("Focus of %1").arg(content.name)
    implicitWidth: Theme.smallSheetWidth
    onOpened: words.focusText()

    Column {
        width: parent ? parent.width : 0
        spacing: Theme.space2

        Item {
            width: parent.width
            height: label.height

            DeskText {
                id: label

                type: DeskText.MetaStrong
                color: Theme.text3
                text: qsTr("Words, any of them")
            }
            DeskText {
                anchors.right: parent.right
                type: DeskText.Meta
                color: Theme.text3
                text: sheet.content.countText
            }
        }
        WordTokensField {
            id: words

            width: parent.width
            label: qsTr("Words, any of them")
            placeholder: qsTr("Everything about Apple")
            words: sheet.content.words
            onAdded: text => sheet.content.addWords(text)
            onRemoved: index => sheet.content.removeWord(index)
        }
        ProposedWords {
            width: parent.width
            words: sheet.content.proposedWords
            onChosen: word => sheet.content.addWords(word)
        }
        DeskText {
            width: parent.width
            type: DeskText.Secondary
            lines: 3
            color: Theme.text3
            text: qsTr("Panels without words of their own show stories that mention one of these. Without words they show all stories.")
        }
    }

    foot: DeskButton {
        inSheet: true
        look: DeskButton.Primary
        text: qsTr("Done")
        onClicked: sheet.close()
    }
}
