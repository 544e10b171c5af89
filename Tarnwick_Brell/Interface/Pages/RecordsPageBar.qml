import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The four tabs, and the filters of the one that is shown.
PageBar {
    id: bar

    required property RecordsPageModel content

    page: content
    fieldText: content.words
    fieldHint: content.tab === RecordsPageModel.Court ? qsTr("Words in dockets") : qsTr("Filter")
    onFieldEdited: text => content.words = text

    Tabs {
        label: qsTr("Records")
        model: bar.content.tabs
        counts: bar.content.counts
        currentIndex: bar.content.tab
        onActivated: index => bar.content.tab = index
    }
    ChoiceChip {
        anchors.verticalCenter: parent.verticalCenter
        visible: label !== ""
        label: bar.content.nameLabel
        choices: bar.content.names
        current: bar.content.name
        onChosen: place => bar.content.name = place
    }
    ChoiceChip {
        anchors.verticalCenter: parent.verticalCenter
        visible: label !== ""
        label: bar.content.kindLabel
        choices: bar.content.kinds
        current: bar.content.kind
        onChosen: place => bar.content.kind = place
    }
}
