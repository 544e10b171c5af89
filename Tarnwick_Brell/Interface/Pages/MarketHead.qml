pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// Price, the day's change and the market's state, and the legend of a comparison, which is the
/// reading of its end. In a narrow page the legend stands below.
Item {
    id: head

    required property MarketsPageModel content
    required property PageSplit split
    property bool pale: false

    readonly property bool isNarrow: figures.width + legend.width + board.width + PageSizes.columnGap > width

    implicitHeight: figures.height + (legend.visible && isNarrow ? legend.height : 0)

    Row {
        id: figures

        spacing: Theme.space2

        DeskText {
            id: price
            type: DeskText.Figure
            text: head.content.price
            color: head.pale ? Theme.text2 : Theme.text1
        }
        DeskText {
            anchors.baseline: price.baseline
            type: DeskText.BaseMedium
            text: head.content.change
            color: head.pale ? Theme.text2
                 : head.content.move === PriceMove.Up ? Theme.green
                 : head.content.move === PriceMove.Down ? Theme.red : Theme.text2
        }
        Rectangle {
            anchors.verticalCenter: market.verticalCenter
            width: Theme.markCircle
            height: width
            radius: width / 2
            visible: head.content.isOpen && !head.pale
            color: Theme.greenMark
        }
        DeskText {
            id: market
            anchors.baseline: price.baseline
            type: DeskText.Secondary
            text: head.content.market
            color: Theme.text2
        }
    }
    Row {
        id: legend

        x: head.isNarrow ? 0 : head.width - width - (board.visible ? board.width + Theme.space2 : 0)
        y: head.isNarrow ? figures.height : (figures.height - height) / 2
        visible: head.content.isComparing
        spacing: Theme.space4

        LegendEntry {
            symbol: head.content.symbol
            change: head.content.chart.change
            line: Theme.accentText
        }
        Repeater {
            model: head.content.chart.lines

            LegendEntry {
                required property int index

                line: index === 0 ? Theme.blueMark : Theme.edge
                dashes: index === 0 ? Theme.chartDashes : Theme.chartDots
            }
        }
    }
    PaneLink {
        id: board

        anchors.right: parent.right
        y: (figures.height - height) / 2
        width: visible ? implicitWidth : 0
        split: head.split
        text: qsTr("Show the board")
    }
}
