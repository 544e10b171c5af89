pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Devices down, builds across. The arrow keys walk the cells; older builds come in from the right
/// under the fixed column of devices.
FocusScope {
    id: table

    required property SigningPageModel content
    required property PageSplit split
    property bool pale: false

    readonly property int deviceColumn: width >= PageSizes.signingDeviceColumn + 6 * PageSizes.signingColumn
        ? PageSizes.signingDeviceColumn : PageSizes.signingDeviceLeast
    readonly property int columnCount: content.columnCount
    readonly property int columnsShown: Math.max(1, Math.min(columnCount, Math.floor((width - deviceColumn - 2 * Theme.gridPadding) / PageSizes.signingColumn)))
    readonly property int lastFirst: Math.max(0, columnCount - columnsShown)
    /// The column at the left.
    property int first: 0
    /// The column of the cell that is read.
    property int reached: -1
    readonly property int cellsX: Theme.gridPadding + deviceColumn

    onLastFirstChanged: first = Math.min(first, lastFirst)
    onColumnCountChanged: reached = Math.min(reached, columnCount - 1)

    function step(by: int) {
        rows.step(by);
    }
    function reach(column: int) {
        if (columnCount === 0)
            return;
        reached = Math.max(0, Math.min(columnCount - 1, column));
        first = Math.max(Math.min(first, reached), reached - columnsShown + 1);
        if (rows.currentIndex < 0)
            rows.step(1);
    }
    function scroll(by: int) {
        first = Math.max(0, Math.min(lastFirst, first + by));
    }

    SigningHeader {
        id: header

        width: parent.width
        content: table.content
        cellsX: table.cellsX
        first: table.first
        columnsShown: table.columnsShown
        split: table.split
        onScrolled: by => table.scroll(by)
    }
    TableList {
        id: rows

        opens: false
        anchors.fill: parent
        anchors.topMargin: header.height
        label: qsTr("Firmware that is signed")
        model: table.content.rows
        Keys.onLeftPressed: table.reach(table.reached - 1)
        Keys.onRightPressed: table.reach(table.reached + 1)

        delegate: Column {
            id: entry

            required property string heading
            required property string name
            required property string identifier
            required property list<int> marks
            required property string trouble
            required property string spokenText
            required property int index

            width: rows.width
            // The list gives it the focus while it is the current one.
            Accessible.role: Accessible.ListItem
            Accessible.name: spokenText
            Accessible.description: rows.currentIndex === index ? table.content.spokenCell(index, table.reached) : ""
            Accessible.focusable: true

            SectionLabel {
                width: parent.width
                height: visible ? implicitHeight : 0
                visible: entry.heading
                text: entry.heading
            }
            SigningRow {
                width: parent.width
                content: table.content
                row: entry.index
                name: entry.name
                identifier: entry.identifier
                marks: entry.marks
                trouble: entry.trouble
                spokenText: entry.spokenText
                cellsX: table.cellsX
                first: table.first
                columnsShown: table.columnsShown
                reached: isCurrent && rows.activeFocus ? table.reached : -1
                pale: table.pale || entry.trouble !== ""
                isCurrent: entry.index === rows.currentIndex
                listFocused: rows.activeFocus
                onChosen: {
                    rows.choose(entry.index);
                    rows.forceActiveFocus(Qt.MouseFocusReason);
                }
                onCellChosen: column => {
                    chosen();
                    table.reach(column);
                }
            }
        }
    }
}
