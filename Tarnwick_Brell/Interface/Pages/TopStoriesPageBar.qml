import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

PageBar {
    id: bar

    required property TopStoriesPageModel content

    page: content
    fieldHint: qsTr("Filter subjects")
    fieldText: content.words
    onFieldEdited: text => content.words = text

    ChoiceChip {
        label: qsTr("Sourcing")
        choices: bar.content.sourcings
        current: bar.content.sourcing
        onChosen: place => bar.content.sourcing = place
    }
    Chip {
        text: qsTr("Growing only")
        active: bar.content.growingOnly
        onClicked: bar.content.growingOnly = !bar.content.growingOnly
        onCleared: bar.content.growingOnly = false
    }
}
