pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// All sources as a table, and what is known of the selected one.
PageBody {
    id: page

    required property SourcesPageModel content

    function step(by: int) {
        table.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        paneWidth: Theme.paneTrade
        mainLeast: places.least
        pane: pane

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        SourceColumns {
            id: places

            width: table.width
        }
        SourceTableHeader {
            id: header

            width: parent.width
            content: page.content
            columns: places
        }
        TableList {
            id: table

            y: header.height
            width: parent.width
            height: parent.height - y - foot.height
            label: qsTr("Sources")
            model: page.content.rows
            currentIndex: page.content.currentRow
            onCurrentIndexChanged: page.content.select(currentIndex)
            onOpened: split.openPane()
            Keys.onDeletePressed: page.content.perform(DeskAction.RemoveSource)
            Keys.onPressed: event => {
                if (!event.matches(StandardKey.Copy))
                    return;
                page.content.perform(DeskAction.CopyRow);
                event.accepted = true;
            }

            delegate: SourceTableLine {
                id: line

                required property int index

                width: table.width
                columns: places
                listFocused: table.activeFocus
                isCurrent: ListView.isCurrentItem
                onChosen: {
                    table.choose(line.index);
                    table.forceActiveFocus();
                }
                onOpened: split.openPane()
                onSwitched: on => page.content.setEnabled(line.id, on)
            }
        }
        EmptyState {
            anchors.centerIn: table
            visible: table.count === 0
            text: qsTr("No source matches.")
            action: qsTr("Show all sources")
            onActed: {
                page.content.words = "";
                page.content.subset = 0;
            }
        }
        DeskText {
            id: foot

            x: Theme.gridPadding
            anchors.bottom: parent.bottom
            height: Theme.sidebarFoot
            type: DeskText.Meta
            color: Theme.text3
            text: page.content.foot
        }
    }
    SourcePane {
        id: pane

        content: page.content
    }
    Connections {
        target: page.content

        function onChanged() {
            table.currentIndex = page.content.currentRow;
        }
    }
}
