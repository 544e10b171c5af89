import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What is searched, and where.
PageBar {
    id: bar

    required property SearchPageModel content

    page: content
    hasRefresh: false
    fieldText: content.words
    fieldHint: qsTr("Search everything")
    onFieldEdited: text => content.words = text

    ChoiceChip {
        label: bar.content.scopes[0]
        choices: bar.content.scopes
        current: bar.content.scope
        onChosen: place => bar.content.scope = place
    }
}
