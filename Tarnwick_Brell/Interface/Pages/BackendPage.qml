pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The timeline of what was found in Apple's public files, and beside it what the chosen finding
/// rests on.
PageBody {
    id: page

    required property BackendPageModel content

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
        paneWidth: Math.max(PageSizes.findingPaneLeast, width - PageSizes.findingList)
        pane: finding

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        Item {
            id: header

            width: parent.width
            height: Theme.listHeader

            DeskText {
                x: Theme.gridPadding
                width: Math.min(implicitWidth, views.x - x - Theme.space2)
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Secondary
                color: Theme.text3
                text: page.content.countText
            }
            SegmentedControl {
                id: views

                anchors.right: paneButton.visible ? paneButton.left : parent.right
                anchors.rightMargin: paneButton.visible ? Theme.space2 : Theme.rowEnd
                anchors.verticalCenter: parent.verticalCenter
                small: true
                label: qsTr("Rows")
                model: [qsTr("Findings"), qsTr("Files")]
                currentIndex: page.content.showsFiles ? 1 : 0
                onActivated: index => page.content.showsFiles = index === 1
            }
            PaneLink {
                id: paneButton

                anchors.right: parent.right
                anchors.rightMargin: Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                split: split
                text: qsTr("What it rests on")
            }
            Hairline {
                anchors.bottom: parent.bottom
                width: parent.width
            }
        }
        TableList {
            id: list

            function takesKey(event: KeyEvent): bool {
                if (event.key !== Qt.Key_C || event.modifiers !== Qt.ControlModifier)
                    return movedBy(event.key);
                page.content.copyChosen();
                return true;
            }

            anchors.top: header.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            focus: true
            label: page.content.showsFiles ? qsTr("Watched files") : qsTr("Findings")
            model: page.content.rows
            currentIndex: page.content.row
            onCurrentIndexChanged: if (currentIndex >= 0)
                page.content.row = currentIndex
            onOpened: row => page.content.openRow(row)

            delegate: FindingLine {
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
        Connections {
            target: page.content

            function onChanged() {
                list.currentIndex = page.content.row;
            }
        }
        EmptyState {
            anchors.centerIn: list
            visible: page.content.nothingShown !== ""
            text: page.content.nothingShown
            action: page.content.words !== "" || page.content.subject > 0 ? qsTr("Show all") : ""
            onActed: page.content.showAll()
        }
    }
    FindingPane {
        id: finding

        content: page.content
    }
}
