pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The news that most outlets cover, each with its timeline, and beside it who had news first.
PageBody {
    id: page

    required property TopStoriesPageModel content

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
        pane: firsts

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        Item {
            id: header

            width: parent.width
            height: Theme.listHeader

            DeskText {
                x: Theme.rowText
                width: Math.min(implicitWidth, shownAs.x - x - Theme.space2)
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Secondary
                color: Theme.text3
                text: page.content.countText
            }
            SegmentedControl {
                id: shownAs

                anchors.right: paneButton.visible ? paneButton.left : parent.right
                anchors.rightMargin: paneButton.visible ? Theme.space2 : Theme.rowEnd
                anchors.verticalCenter: parent.verticalCenter
                small: true
                label: qsTr("One row for each")
                model: [qsTr("Stories"), qsTr("Clusters")]
                currentIndex: page.content.showsClusters ? 1 : 0
                onActivated: index => page.content.wantClusters(index === 1)
            }
            PaneLink {
                id: paneButton

                anchors.right: parent.right
                anchors.rightMargin: Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                split: split
                text: qsTr("Who had it first")
            }
            Hairline {
                anchors.bottom: parent.bottom
                width: parent.width
            }
        }
        TableList {
            id: list

            function canChoose(row: int): bool {
                return page.content.canChoose(row);
            }

            anchors.top: header.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            label: qsTr("Top stories")
            model: page.content.rows
            onOpened: row => page.content.openRow(row)
            Keys.onRightPressed: page.content.setOpen(currentIndex, true)
            Keys.onLeftPressed: closeSubject()

            /// Of the current row, which is then the subject's own.
            function closeSubject() {
                let row = currentIndex;
                while (row > 0 && !(itemAtIndex(row) as TopStoriesLine)?.isSubject)
                    --row;
                if (row < 0)
                    return;
                currentIndex = row;
                page.content.setOpen(row, false);
            }

            delegate: TopStoriesLine {
                width: list.width
                listFocused: list.activeFocus
                isCurrent: ListView.isCurrentItem
                onChosen: {
                    list.forceActiveFocus();
                    list.choose(index);
                }
                onToggled: page.content.openRow(index)
                onOpened: page.content.openRow(index)
            }
        }
        EmptyState {
            anchors.centerIn: list
            visible: list.count === 0
            text: qsTr("No subject passes these filters.")
            action: qsTr("Show all")
            onActed: {
                page.content.words = "";
                page.content.sourcing = 0;
                page.content.growingOnly = false;
            }
        }
    }
    FirstWithItPane {
        id: firsts

        content: page.content
    }
}
