import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Which sources the table shows, and what can be done with them all.
PageBar {
    id: bar

    required property SourcesPageModel content

    page: content
    fieldHint: qsTr("Filter sources")
    fieldText: content.words
    onFieldEdited: text => bar.content.words = text
    buttons: IconButton {
        symbol: "doc.on.doc"
        text: qsTr("Copy the report of these sources")
        onClicked: bar.content.perform(DeskAction.CopySourceReport)
    }

    SegmentedControl {
        label: qsTr("Which sources are shown")
        model: bar.content.subsets
        currentIndex: bar.content.subset
        onActivated: index => bar.content.subset = index
    }
}
