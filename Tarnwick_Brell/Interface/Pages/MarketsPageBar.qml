import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The range of the chart, and what is compared in it.
PageBar {
    id: bar

    required property MarketsPageModel content

    page: content

    SegmentedControl {
        label: qsTr("Chart range")
        model: bar.content.ranges
        currentIndex: bar.content.range
        onActivated: index => bar.content.chooseRange(index)
    }
    CompareChip {
        content: bar.content
    }
}
