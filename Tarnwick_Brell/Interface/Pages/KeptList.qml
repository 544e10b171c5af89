pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The list of a page of what the user keeps. A message stands in place of a list without rows.
FocusScope {
    id: body

    required property KeptListPageModel content
    property alias label: list.label
    /// Rows can be put in another order.
    property bool isOrdered: false

    signal opened(row: int)
    signal moved(row: int, by: int)

    function step(by: int) {
        list.step(by);
    }
    function focusList() {
        list.forceActiveFocus();
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    TableList {
        id: list

        anchors.fill: parent
        model: body.content.rows
        // Set by hand: a view moves its index while rows come and go.
        Component.onCompleted: currentIndex = body.content.row
        onCurrentIndexChanged: if (currentIndex >= 0)
            body.content.row = currentIndex
        onOpened: row => body.opened(row)
        Keys.onDeletePressed: body.content.removeRow(currentIndex)
        isOrdered: body.isOrdered
        onMoved: (row, by) => body.moved(row, by)

        delegate: KeptLine {
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: body.opened(index)
        }
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.gridPadding
        visible: body.content.listMessage !== ""
        text: body.content.listMessage
    }
    Connections {
        target: body.content

        function onChanged() {
            list.currentIndex = body.content.row;
        }
    }
}
