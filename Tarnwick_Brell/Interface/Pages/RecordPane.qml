pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A filing, what an insider did, or a press release in full.
PagePane {
    id: pane

    required property RecordsPageModel content
    readonly property bool hasRow: content.row >= 0

    lead: DeskButton {
        visible: pane.hasRow && pane.content.sheetLink !== ""
        symbol: "arrow.up.right.square"
        text: pane.content.sheetLinkText
        onClicked: pane.content.openRow(pane.content.row)
    }
    tools: IconButton {
        visible: pane.hasRow
        symbol: "quote.opening"
        text: qsTr("Copy as a line")
        onClicked: {
            clip.text = pane.content.sheetCopy;
            clip.selectAll();
            clip.copy();
        }
    }

    TextEdit {
        id: clip

        visible: false
        Accessible.ignored: true
    }
    PageMessage {
        visible: !pane.hasRow
        text: qsTr("Nothing is selected.")
    }
    TableList {
        id: list

        anchors.fill: parent
        focus: true
        visible: pane.hasRow
        label: qsTr("The record")
        model: pane.content.lines
        onOpened: row => pane.content.actOnLine(row)

        head: RecordHead {
            width: list.width
            content: pane.content
        }
        delegate: RecordSheetLine {
            width: list.width
            isCurrent: ListView.isCurrentItem && list.activeFocus
            onActed: {
                list.choose(index);
                pane.content.actOnLine(index);
            }
        }
    }
}
