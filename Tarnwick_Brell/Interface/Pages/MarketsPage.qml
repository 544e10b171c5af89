import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The chart of a share, compared with others, and the board that shares are chosen from.
PageBody {
    id: page

    required property MarketsPageModel content
    readonly property bool pale: content.state === PanelModel.Stale

    function step(by: int) {
        board.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        paneWidth: PageSizes.paneTrade
        mainLeast: PageSizes.marketChartLeast
        pane: PagePane {
            title: qsTr("Board")
            fact: page.content.boardFact

            MarketBoard {
                id: board

                anchors.fill: parent
                focus: true
                content: page.content
            }
        }

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        MarketHead {
            id: head

            x: Theme.gridPadding
            y: Theme.space3
            width: parent.width - 2 * x
            content: page.content
            split: split
            pale: page.pale
        }
        QuoteChart {
            id: chart

            anchors.top: head.bottom
            anchors.topMargin: Theme.space2
            x: Theme.gridPadding
            width: parent.width - 2 * x
            height: Math.max(PageSizes.marketChartHeight, (split.height - y) * PageSizes.marketChartShare)
            focus: true
            content: page.content.chart
            pale: page.pale
            onMoveChosen: letter => moves.show(page.content.moveLine(letter))
            onLevelSet: (rule, price) => page.content.setLevel(rule, price)
        }
        MarketFigures {
            id: figures

            anchors.top: chart.bottom
            anchors.topMargin: Theme.space3
            x: Theme.gridPadding
            width: parent.width - 2 * x
            figures: page.content.figures
        }
        MarketMoves {
            id: moves

            anchors.top: figures.bottom
            anchors.topMargin: Theme.space3
            anchors.bottom: parent.bottom
            width: parent.width
            content: page.content
        }
    }
}
