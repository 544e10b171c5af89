pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Everything that happened outside the wire, and beside it the wire of the hours around the chosen
/// line.
PageBody {
    id: page

    required property ActivityPageModel content

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
        paneWidth: Math.max(PageSizes.paneRecordLeast, width - PageSizes.logList)
        pane: wire

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        Item {
            id: header

            width: parent.width
            height: Theme.listHeader

            DeskText {
                id: count

                x: Theme.rowText
                width: Math.min(implicitWidth, weights.x - x - Theme.space2)
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Secondary
                color: Theme.text3
                text: page.content.countText
            }
            LinkText {
                x: count.x + count.width + Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                visible: text && x + width < weights.x
                text: page.content.untoldText
                onClicked: page.content.showHistory()
            }
            SegmentedControl {
                id: weights

                anchors.right: paneButton.visible ? paneButton.left : parent.right
                anchors.rightMargin: paneButton.visible ? Theme.space2 : Theme.rowEnd
                anchors.verticalCenter: parent.verticalCenter
                small: true
                label: qsTr("Least weight")
                model: page.content.weights
                currentIndex: page.content.weight
                onActivated: index => page.content.weight = index
            }
            PaneLink {
                id: paneButton

                anchors.right: parent.right
                anchors.rightMargin: Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                split: split
                text: qsTr("The wire of that hour")
            }
            Hairline {
                anchors.bottom: parent.bottom
                width: parent.width
            }
        }
        TableList {
            id: list

            anchors.top: header.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            label: qsTr("Activity")
            model: page.content.rows
            currentIndex: page.content.row
            onCurrentIndexChanged: if (currentIndex >= 0)
                page.content.row = currentIndex
            onOpened: row => page.content.openRow(row)
            onAtYEndChanged: if (atYEnd)
                page.content.loadMore()

            delegate: ActivityLine {
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
            action: qsTr("Show all")
            onActed: page.content.showAll()
        }
    }
    ActivityPane {
        id: wire

        content: page.content
    }
}
