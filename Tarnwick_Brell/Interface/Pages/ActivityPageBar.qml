import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The kinds and the period that the log is searched in.
PageBar {
    id: bar

    required property ActivityPageModel content

    page: content
    fieldText: content.words
    fieldHint: qsTr("Search the log")
    onFieldEdited: text => content.words = text
    buttons: [
        DeskButton {
            symbol: "bell"
            text: qsTr("Alerts")
            tip: qsTr("What was told, what was not, and why")
            onClicked: bar.content.showHistory()
        }
    ]

    ChoiceChip {
        label: qsTr("Kind")
        choices: bar.content.kinds
        current: bar.content.kind
        onChosen: place => bar.content.kind = place
    }
    ChoiceChip {
        label: qsTr("Period")
        choices: bar.content.periods
        current: bar.content.period
        onChosen: place => bar.content.period = place
    }
}
