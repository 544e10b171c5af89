pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A project: its timeline, and the chosen piece of evidence. Stories can be dropped on it.
PageBody {
    id: page

    required property ProjectPageModel content

    function step(by: int) {
        list.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        mainLeast: PageSizes.caseList
        paneWidth: Math.max(PageSizes.docketLeast, Math.round(width * PageSizes.memberPaneShare))
        pane: evidence

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        ProjectHead {
            id: head

            width: parent.width
            content: page.content
        }
        TableList {
            id: list

            anchors.fill: parent
            anchors.topMargin: head.height
            focus: true
            label: qsTr("Timeline of the project")
            model: page.content.rows
            Component.onCompleted: currentIndex = page.content.row
            onCurrentIndexChanged: if (currentIndex >= 0)
                page.content.row = currentIndex
            onOpened: row => page.content.openRow(row)
            Keys.onDeletePressed: page.content.removeRow(currentIndex)
            isOrdered: true
            onMoved: (row, by) => page.content.moveRow(row, by)

            delegate: ProjectLine {
                width: list.width
                listFocused: list.activeFocus
                isCurrent: ListView.isCurrentItem
                onChosen: {
                    list.forceActiveFocus();
                    list.choose(index);
                }
                onOpened: page.content.openRow(index)
                onToggled: page.content.toggleDone(index)
            }
        }
        EmptyState {
            anchors.centerIn: list
            width: list.width - 2 * Theme.gridPadding
            visible: list.count === 0
            symbol: "archivebox"
            text: qsTr("Nothing is in this view of the project.")
            hint: qsTr("Shift+P on a story, a clip or a note puts it here; stories can be dropped here too.")
        }
        Connections {
            target: page.content

            function onChanged() {
                list.currentIndex = page.content.row;
            }
            function onTypingWanted() {
                split.openPane();
                typing.restart();
            }
        }
        DropArea {
            anchors.fill: parent
            keys: [page.content.storyKind]
            onDropped: drop => {
                page.content.addStory(drop.getDataAsString(page.content.storyKind));
                drop.accept(Qt.CopyAction);
            }
        }
        Timer {
            id: typing

            interval: Theme.nextTurn
            onTriggered: evidence.focusText()
        }
    }
    MemberPane {
        id: evidence

        content: page.content
    }
}
