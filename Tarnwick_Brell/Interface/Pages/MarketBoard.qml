pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The board of shares by group. Enter charts the selected share, Shift+Enter compares it. Old
/// figures have no colour.
FocusScope {
    id: board

    required property MarketsPageModel content

    function step(by: int) {
        rows.step(by);
    }

    TableList {
        id: rows

        opens: false
        width: parent.width
        height: note.y - Theme.space3
        label: qsTr("Shares")
        model: board.content.board
        Component.onCompleted: currentIndex = board.content.chartedRow
        Keys.onReturnPressed: event => open(event.modifiers & Qt.ShiftModifier)
        Keys.onEnterPressed: event => open(event.modifiers & Qt.ShiftModifier)

        function open(compares: int) {
            if (compares)
                board.content.compareRow(currentIndex);
            else
                board.content.chartRow(currentIndex);
        }

        delegate: Column {
            id: entry

            required property string heading
            required property string symbol
            required property string name
            required property string price
            required property string change
            required property int move
            required property bool isOld
            required property bool isCharted
            required property bool isCompared
            required property list<point> line
            required property string spokenText
            required property int index

            readonly property bool pale: isOld || board.content.boardIsOld

            width: rows.width

            SectionLabel {
                width: parent.width
                height: visible ? implicitHeight : 0
                visible: entry.heading
                text: entry.heading
            }
            TableRow {
                width: parent.width
                spokenText: entry.spokenText
                isCurrent: rows.activeFocus ? entry.index === rows.currentIndex : entry.isCharted
                listFocused: rows.activeFocus
                onChosen: {
                    rows.choose(entry.index);
                    board.content.chartRow(entry.index);
                }

                contentItem: Item {
                    DeskText {
                        id: symbol
                        x: Theme.gridPadding
                        width: PageSizes.marketSymbolColumn - Theme.space1
                        anchors.verticalCenter: parent.verticalCenter
                        type: entry.isCharted ? DeskText.SecondaryStrong : DeskText.SecondaryMedium
                        text: entry.symbol
                        color: entry.isCharted ? Theme.accentText : entry.pale ? Theme.text2 : Theme.text1
                        Accessible.ignored: true
                    }
                    DeskText {
                        x: Theme.gridPadding + PageSizes.marketSymbolColumn
                        width: compared.x - x - Theme.space1
                        anchors.verticalCenter: parent.verticalCenter
                        type: DeskText.Secondary
                        text: entry.name
                        color: Theme.text2
                        Accessible.ignored: true
                    }
                    Symbol {
                        id: compared
                        x: spark.x - (visible ? width + Theme.space1 : 0)
                        anchors.verticalCenter: parent.verticalCenter
                        visible: entry.isCompared
                        name: "checkmark"
                        size: Theme.iconInMeta
                        color: Theme.blueMark
                    }
                    Sparkline {
                        id: spark
                        anchors.right: price.left
                        anchors.verticalCenter: parent.verticalCenter
                        width: PageSizes.marketLine
                        points: entry.line
                        move: entry.move
                        pale: entry.pale
                    }
                    DeskText {
                        id: price
                        anchors.right: change.left
                        anchors.verticalCenter: parent.verticalCenter
                        width: PageSizes.marketPriceColumn
                        horizontalAlignment: Text.AlignRight
                        type: DeskText.Secondary
                        text: entry.price
                        color: entry.pale ? Theme.text2 : Theme.text1
                        Accessible.ignored: true
                    }
                    DeskText {
                        id: change
                        anchors.right: parent.right
                        anchors.rightMargin: Theme.gridPadding
                        anchors.verticalCenter: parent.verticalCenter
                        width: PageSizes.marketChangeColumn
                        horizontalAlignment: Text.AlignRight
                        type: DeskText.SecondaryMedium
                        text: entry.isOld ? qsTr("old") : entry.change
                        color: entry.pale ? Theme.text2
                             : entry.move === PriceMove.Up ? Theme.green
                             : entry.move === PriceMove.Down ? Theme.red : Theme.text2
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
    DeskText {
        id: note

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.space3
        anchors.leftMargin: Theme.gridPadding
        anchors.rightMargin: Theme.gridPadding
        type: DeskText.Meta
        lines: 3
        color: Theme.text3
        text: board.content.boardMessage || qsTr("Prices as the exchanges give them, never converted.")
    }
}
