import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Price, the day's change and the chart. In a narrow panel the change is below the price, in place
/// of the chart's reading; in a narrower one the ranges have a line of their own below the chart.
Item {
    id: panel

    required property StockPanelModel content
    readonly property bool pale: content.state === PanelModel.Stale
    readonly property bool isSlim: price.width + ranges.width + Theme.space2 > width
    readonly property bool isNarrow: price.width + change.width + ranges.width + Theme.space2 + Theme.space3 > width

    DeskText {
        id: price
        type: DeskText.Figure
        text: panel.content.price
        color: panel.pale ? Theme.text2 : Theme.text1
    }
    DeskText {
        id: change
        x: panel.isNarrow ? 0 : price.width + Theme.space2
        y: panel.isNarrow ? price.height : price.height - height - Theme.step3
        visible: !panel.isNarrow || !chart.isRead
        type: DeskText.SecondaryMedium
        text: panel.content.change
        color: panel.pale ? Theme.text2
             : panel.content.move === PriceMove.Up ? Theme.green
             : panel.content.move === PriceMove.Down ? Theme.red : Theme.text2
    }
    SegmentedControl {
        id: ranges
        visible: !Theme.board
        anchors.right: parent.right
        y: panel.isSlim ? parent.height - height : (price.height - height) / 2
        small: true
        label: qsTr("Chart range")
        model: panel.content.ranges
        currentIndex: panel.content.range
        onActivated: index => panel.content.choose(index)
    }
    QuoteChart {
        id: chart
        anchors.top: price.bottom
        anchors.topMargin: panel.isNarrow ? 0 : Theme.space1
        anchors.bottom: parent.bottom
        anchors.bottomMargin: panel.isSlim ? ranges.height : 0
        width: parent.width
        content: panel.content.chart
        pale: panel.pale
    }
}
