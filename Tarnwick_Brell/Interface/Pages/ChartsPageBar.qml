import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The filters of the App Store charts.
PageBar {
    id: bar

    required property ChartsPageModel content

    page: content
    fieldText: content.words
    fieldHint: qsTr("App or developer")
    onFieldEdited: text => content.words = text

    SegmentedControl {
        label: qsTr("Apps")
        model: [qsTr("All apps"), qsTr("Apple's own")]
        currentIndex: bar.content.onlyApples ? 1 : 0
        onActivated: index => bar.content.onlyApples = index === 1
    }
}
