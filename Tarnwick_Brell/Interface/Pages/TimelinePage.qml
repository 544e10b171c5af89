pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A subject from the first rumor to its release: the scale, how it firmed up, what was claimed,
/// and beside them its releases.
PageBody {
    id: page

    required property TimelinePageModel content

    function step(by: int) {
        list.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    TimelineScale {
        id: chart

        width: parent.width
        content: page.content
        current: page.content.stageOfRow(list.currentIndex)
        onChosen: stage => {
            list.forceActiveFocus();
            list.choose(page.content.rowOfStage(stage));
        }
    }
    Hairline {
        y: chart.height
        width: parent.width
    }
    PageSplit {
        id: split

        y: chart.height + Theme.line
        width: parent.width
        height: parent.height - y
        focus: true
        pane: releases
        mainLeast: PageSizes.timelineListLeast

        TableList {
            id: list

            function canChoose(row: int): bool {
                return page.content.canChoose(row);
            }
            /// The stage before or after the one in reading.
            function readStage(by: int) {
                const stage = page.content.stageOfRow(currentIndex);
                choose(page.content.rowOfStage(stage < 0 ? 0 : stage + by));
            }

            anchors.fill: parent
            focus: true
            label: qsTr("How it firmed up, what was claimed")
            model: page.content.rows
            onOpened: row => page.content.openRow(row)
            Keys.onLeftPressed: readStage(-1)
            Keys.onRightPressed: readStage(1)

            head: Item {
                width: list.width
                height: link.visible ? PageSizes.tableTitle : 0

                PaneLink {
                    id: link

                    anchors.right: parent.right
                    anchors.rightMargin: Theme.space3
                    anchors.verticalCenter: parent.verticalCenter
                    split: split
                    text: releases.title
                }
            }
            delegate: TimelineLine {
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
    }
    TimelineReleases {
        id: releases

        content: page.content
    }
}
