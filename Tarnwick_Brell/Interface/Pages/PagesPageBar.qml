import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Which of the followed pages the list has.
PageBar {
    id: bar

    required property PagesPageModel content

    page: content
    fieldText: content.words
    fieldHint: qsTr("Search followed pages")
    onFieldEdited: text => content.words = text

    SegmentedControl {
        label: qsTr("Which pages are shown")
        model: bar.content.subsets
        currentIndex: bar.content.subset
        onActivated: index => bar.content.subset = index
    }
}
