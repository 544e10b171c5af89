import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The fields of a beat.
Flickable {
    id: form

    required property BeatSheetModel content

    /// The words of a new beat, whose name follows from them; else the name.
    function focusFirst() {
        if (content.isNew) {
            words.focusText();
        } else {
            name.forceActiveFocus();
            name.selectAll();
        }
    }

    contentHeight: fields.height + Theme.space6
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    T.ScrollBar.vertical: ThinScrollBar {}

    Column {
        id: fields

        x: Theme.space6
        width: form.width - 2 * x
        spacing: Theme.space2

        FieldLabel {
            text: qsTr("Name")
        }
        Item {
            width: parent.width
            height: name.height

            DeskField {
                id: name

                width: parent.width - symbol.width - Theme.space2
                outlined: true
                label: qsTr("Name")
                placeholderText: form.content.proposedName
                text: form.content.name
                onTextEdited: form.content.name = text
            }
            IconButton {
                id: symbol

                anchors.right: parent.right
                anchors.verticalCenter: name.verticalCenter
                symbol: form.content.symbol
                text: qsTr("Choose the symbol")
                onClicked: symbols.open()

                SymbolPicker {
                    id: symbols

                    symbols: form.content.symbols
                    current: form.content.symbol
                    onChosen: name => form.content.symbol = name
                }
            }
        }
        FieldLabel {
            text: qsTr("Words its stories mention, separated by commas")
        }
        WordTokensField {
            id: words

            width: parent.width
            label: qsTr("Words its stories mention")
            words: form.content.words
            onAdded: text => form.content.addWords(text)
            onRemoved: index => form.content.removeWord(index)
            onEdited: form.content.setTyped(text)
        }
        DeskText {
            width: parent.width
            type: DeskText.Meta
            lines: 3
            color: Theme.text3
            text: form.content.preview.otherForm
        }
        LinkText {
            visible: text
            height: visible ? implicitHeight : 0
            type: DeskText.MetaMedium
            text: form.content.preview.otherFormAction
            onClicked: form.content.addOtherForm()
        }
        FieldLabel {
            text: qsTr("Leave out")
        }
        WordTokensField {
            width: parent.width
            label: qsTr("Leave out")
            placeholder: qsTr("Add a word to leave out")
            words: form.content.excludedWords
            onAdded: text => form.content.addExcludedWords(text)
            onRemoved: index => form.content.removeExcludedWord(index)
        }
        FieldLabel {
            text: qsTr("Sources and sourcing")
        }
        Row {
            spacing: Theme.space2

            FilterChip {
                choices: form.content.sources
            }
            FilterChip {
                choices: form.content.sourcings
            }
        }
        BeatOption {
            width: parent.width
            text: qsTr("Stories set aside, too")
            hint: qsTr("deals, reviews, roundups, advertising")
            checked: form.content.includesSetAside
            onToggled: form.content.includesSetAside = checked
        }
        BeatOption {
            width: parent.width
            text: qsTr("Tell me about new ones")
            hint: form.content.preview.rehearsal
            checked: form.content.alerts
            onToggled: form.content.alerts = checked
        }
        Banner {
            width: parent.width
            visible: form.content.preview.tooMuch
            symbol: "exclamationmark.triangle"
            symbolColor: Theme.amber
            text: form.content.preview.tooMuch
            action: qsTr("Remove it")
            onActed: form.content.removeTooMuch()
        }
        DeskText {
            width: parent.width
            visible: text
            type: DeskText.Secondary
            lines: 3
            color: Theme.text2
            text: form.content.problem
        }
    }
}
