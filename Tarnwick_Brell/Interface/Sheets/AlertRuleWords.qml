import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The words of a rule about stories or signals.
Column {
    id: words

    required property AlertRuleSheetModel content

    spacing: Theme.space2

    FilterChip {
        visible: words.content.trigger === AlertRuleSheetModel.Signals
        choices: words.content.kinds
    }
    FieldLabel {
        text: qsTr("Words, any of them, separated by commas")
    }
    WordTokensField {
        width: parent.width
        label: qsTr("Words, any of them")
        words: words.content.words
        onAdded: text => words.content.addWords(text)
        onRemoved: index => words.content.removeWord(index)
        onEdited: words.content.setTyped(text)
    }
    FieldLabel {
        text: qsTr("Leave out")
    }
    WordTokensField {
        width: parent.width
        label: qsTr("Leave out")
        placeholder: qsTr("Add a word to leave out")
        words: words.content.excludedWords
        onAdded: text => words.content.addExcludedWords(text)
        onRemoved: index => words.content.removeExcludedWord(index)
    }
}
