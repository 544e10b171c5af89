pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What a search over everything found, with the words that it hit marked.
PageBody {
    id: page

    required property SearchPageModel content

    function step(by: int) {
        list.step(by);
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    TableList {
        id: list

        anchors.fill: parent
        focus: true
        label: qsTr("Found")
        model: page.content.rows
        currentIndex: page.content.row
        onCurrentIndexChanged: if (currentIndex >= 0)
            page.content.row = currentIndex
        onOpened: row => page.content.openRow(row)

        delegate: KeptLine {
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: page.content.openRow(index)
        }
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.gridPadding
        visible: page.content.listMessage !== ""
        symbol: "magnifyingglass"
        text: page.content.listMessage
    }
}
