pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The followed pages, and of the chosen one what changed between two revisions.
PageBody {
    id: page

    required property PagesPageModel content

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
        paneWidth: Math.max(PageSizes.docketLeast, width - PageSizes.caseList - Theme.line)
        pane: changes

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        Item {
            id: header

            width: parent.width
            height: Theme.listHeader

            DeskField {
                id: field

                x: Theme.gridPadding
                width: add.x - x - Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                outlined: true
                clearsOnEscape: true
                placeholderText: qsTr("Address of a page")
                onAccepted: add.clicked()
                onEscaped: list.forceActiveFocus()
            }
            DeskButton {
                id: add

                anchors.right: paneButton.visible ? paneButton.left : parent.right
                anchors.rightMargin: paneButton.visible ? Theme.space1 : Theme.gridPadding
                anchors.verticalCenter: parent.verticalCenter
                enabled: field.text.trim() !== ""
                symbol: "plus"
                text: qsTr("Follow")
                onClicked: {
                    page.content.addPage(field.text);
                    field.clear();
                }
            }
            PaneLink {
                id: paneButton

                anchors.right: parent.right
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                split: split
                text: qsTr("Show what changed")
            }
            Hairline {
                anchors.bottom: parent.bottom
                width: parent.width
            }
        }
        TableList {
            id: list

            anchors.fill: parent
            anchors.topMargin: header.height
            label: qsTr("Followed pages")
            model: page.content.rows
            currentIndex: page.content.row
            onCurrentIndexChanged: if (currentIndex >= 0)
                page.content.row = currentIndex
            onOpened: row => page.content.openRow(row)

            delegate: FollowedPageLine {
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
    }
    PageChangesPane {
        id: changes

        content: page.content
    }
}
