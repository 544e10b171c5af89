pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The next event, then the calendar by month, what is over, and anniversaries.
PageBody {
    id: page

    required property EventsPageModel content
    readonly property bool pale: content.state === PanelModel.Stale

    function step(by: int) {
        list.step(by);
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    TableList {
        id: list

        function canChoose(row: int): bool {
            return page.content.isEvent(row);
        }

        anchors.fill: parent
        focus: true
        label: qsTr("Events")
        model: page.content.rows
        onCurrentIndexChanged: page.content.row = currentIndex
        onOpened: row => page.content.openRow(row)

        head: NextEvent {
            width: list.width
            content: page.content
            pale: page.pale
        }
        foot: Item {
            width: list.width
            height: nothing.visible ? nothing.height + 2 * Theme.space8 : Theme.space5

            EmptyState {
                id: nothing

                anchors.centerIn: parent
                visible: list.count === 0
                text: qsTr("No event passes these filters.")
            }
        }
        delegate: EventLine {
            width: list.width
            pale: page.pale
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: page.content.openRow(index)
        }
    }
}
