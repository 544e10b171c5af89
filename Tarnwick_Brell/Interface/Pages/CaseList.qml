pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The cases whose dockets are followed, and below them new ones. A docket's address pasted above
/// them follows it.
FocusScope {
    id: cases

    required property RecordsPageModel content
    required property PageSplit split
    readonly property alias list: list

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
            placeholderText: qsTr("Docket at CourtListener")
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
                cases.content.addCase(field.text);
                field.clear();
            }
        }
        PaneLink {
            id: paneButton

            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            split: cases.split
            text: qsTr("Show the docket")
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
        label: qsTr("Cases")
        model: cases.content.cases
        onCurrentIndexChanged: if (currentIndex >= 0 && cases.visible)
            cases.content.row = currentIndex
        onOpened: row => cases.content.openRow(row)

        delegate: CaseLine {
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: cases.content.openRow(index)
            onFollowed: {
                list.choose(index);
                cases.content.followCase();
            }
        }
    }
    Connections {
        target: cases.content
        enabled: cases.visible

        function onChanged() {
            list.currentIndex = cases.content.row;
        }
    }
    onVisibleChanged: if (visible)
        list.currentIndex = content.row
}
