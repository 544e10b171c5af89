import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The projects in the user's order, below a field for a new one.
PageBody {
    id: page

    required property ProjectsPageModel content

    function step(by: int) {
        list.step(by);
    }

    Item {
        id: header

        width: parent.width
        height: Theme.listHeader

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        DeskField {
            id: field

            x: Theme.gridPadding
            width: Math.min(Theme.readerText, parent.width - x - add.width - Theme.space2 - Theme.gridPadding)
            anchors.verticalCenter: parent.verticalCenter
            outlined: true
            clearsOnEscape: true
            placeholderText: qsTr("Name of a new project")
            onAccepted: add.clicked()
            onEscaped: list.focusList()
        }
        DeskButton {
            id: add

            anchors.left: field.right
            anchors.leftMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            enabled: field.text.trim() !== ""
            symbol: "plus"
            text: qsTr("New project")
            onClicked: {
                page.content.addProject(field.text);
                field.clear();
            }
        }
        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }
    KeptList {
        id: list

        anchors.fill: parent
        anchors.topMargin: header.height
        focus: true
        content: page.content
        label: qsTr("Projects")
        isOrdered: true
        onOpened: row => page.content.openRow(row)
        onMoved: (row, by) => page.content.moveRow(row, by)
    }
}
