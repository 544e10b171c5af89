pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// All sources as a table; an open row tells what is known of its source.
PageBody {
    id: page

    required property SourcesPageModel content

    function step(by: int) {
        table.step(by);
    }
    function switchPane() {
        const line = table.currentItem as SourceTableLine;
        if (!line)
            return;
        if (line.hasDetailFocus) {
            line.focusRow();
            return;
        }
        if (!line.isOpen)
            content.open(line.index);
        line.focusDetails();
    }

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
        onOpened: row => page.content.toggle(row)
        Keys.onDeletePressed: page.content.perform(DeskAction.RemoveSource)
        Keys.onRightPressed: page.content.open(currentIndex)
        Keys.onLeftPressed: page.content.open(-1)
        Keys.onEscapePressed: page.content.open(-1)
        Keys.onPressed: event => {
            if (!event.matches(StandardKey.Copy))
                return;
            page.content.perform(DeskAction.CopyRow);
            event.accepted = true;
        }

        delegate: SourceTableLine {
            id: line

            width: table.width
            columns: places
            content: page.content
            listFocused: table.activeFocus
            isCurrent: ListView.isCurrentItem
            // A click on the selected row opens it.
            onChosen: {
                const wasCurrent = isCurrent && listFocused;
                table.choose(line.index);
                line.focusRow();
                if (wasCurrent)
                    page.content.toggle(line.index);
            }
            onToggled: {
                table.choose(line.index);
                line.focusRow();
                page.content.toggle(line.index);
            }
            onSwitched: on => page.content.setEnabled(line.id, on)
            onHeightChanged: if (isOpen && ListView.isCurrentItem)
                table.positionViewAtIndex(index, ListView.Contain)
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
            page.content.group = 0;
        }
    }
    Item {
        id: foot

        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.sidebarFoot

        Hairline {
            width: parent.width
        }
        DeskText {
            x: Theme.gridPadding
            width: parent.width - 2 * x
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            color: Theme.text3
            text: page.content.foot
        }
    }
    Connections {
        target: page.content

        function onChanged() {
            table.currentIndex = page.content.currentRow;
        }
    }
}
