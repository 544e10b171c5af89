import QtQuick
import TarnwickBrell.Models

/// The filters of the update catalogue.
PageBar {
    id: bar

    required property UpdatesPageModel content

    page: content
    fieldText: content.words
    fieldHint: qsTr("Version, build or device")
    onFieldEdited: text => content.words = text

    ChoiceChip {
        label: qsTr("Platform")
        choices: bar.content.platforms
        current: bar.content.platform
        onChosen: place => bar.content.choosePlatform(place)
    }
}
