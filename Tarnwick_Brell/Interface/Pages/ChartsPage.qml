import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Both charts of the App Store side by side, and the history of the selected app.
PageBody {
    id: page

    required property ChartsPageModel content
    readonly property bool pale: content.state === PanelModel.Stale
    readonly property ChartColumn current: content.selectedChart === 0 ? free : paid

    function step(by: int) {
        current.step(by);
    }
    function switchPane() {
        split.switchPane();
    }
    /// To the other chart, at the same height.
    function cross(chart: int, row: int) {
        const other = chart === 0 ? free : paid;
        other.enter(Math.min(row, other.count - 1));
    }

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        mainLeast: 2 * PageSizes.chartsColumnLeast
        pane: AppPane {
            content: page.content
            pale: page.pale
        }

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        ChartColumn {
            id: free

            width: Math.floor(parent.width / 2)
            height: parent.height
            focus: page.content.selectedChart === 0
            title: qsTr("Free apps")
            fact: page.content.freeFact
            rows: page.content.freeApps
            selectedRow: page.content.selectedChart === 0 ? page.content.selectedRow : -1
            pale: page.pale
            onChosen: row => page.content.select(0, row)
            onCrossed: row => page.cross(1, row)
            onOpened: page.content.openApp()
        }
        Hairline {
            vertical: true
            x: free.width
            height: parent.height
        }
        ChartColumn {
            id: paid

            x: free.width + Theme.line
            width: parent.width - x
            height: parent.height
            focus: page.content.selectedChart === 1
            title: qsTr("Paid apps")
            fact: page.content.paidFact
            rows: page.content.paidApps
            selectedRow: page.content.selectedChart === 1 ? page.content.selectedRow : -1
            pale: page.pale
            split: split
            onChosen: row => page.content.select(1, row)
            onCrossed: row => page.cross(0, row)
            onOpened: page.content.openApp()
        }
    }
}
