import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Panels

/// A line of a comparison, its symbol and its change over the range.
Row {
    id: entry

    required property string symbol
    required property string change
    required property color line
    property list<real> dashes

    spacing: Theme.badgeGap

    LineChartItem {
        anchors.verticalCenter: parent.verticalCenter
        width: PageSizes.legendLine
        height: Theme.space1
        points: [Qt.point(0, 0.5), Qt.point(1, 0.5)]
        color: entry.line
        lineWidth: Theme.chartLine
        dashes: entry.dashes
    }
    DeskText {
        type: DeskText.SecondaryMedium
        text: entry.symbol
    }
    DeskText {
        type: DeskText.Secondary
        text: entry.change || qsTr("Loading…")
        color: Theme.text2
    }
}
