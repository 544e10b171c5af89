import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

PageBar {
    id: bar

    required property EventsPageModel content

    page: content
    fieldHint: qsTr("Filter events")
    fieldText: content.words
    onFieldEdited: text => content.words = text

    SegmentedControl {
        label: qsTr("Which events")
        model: [qsTr("All"), qsTr("Coming"), qsTr("Past"), qsTr("Anniversaries")]
        currentIndex: bar.content.part
        onActivated: index => bar.content.part = index
    }
}
