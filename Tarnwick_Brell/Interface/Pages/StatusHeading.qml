import QtQuick
import TarnwickBrell.Controls

/// A heading between the problems and the tables.
Item {
    id: line

    required property StatusRow row

    implicitHeight: PageSizes.tableTitle

    DeskText {
        id: headingTitle

        x: Theme.gridPadding
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.BaseStrong
        text: line.row.title
        Accessible.ignored: true
    }
    DeskText {
        anchors.left: headingTitle.right
        anchors.leftMargin: line.row.title ? Theme.space2 : 0
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Secondary
        text: line.row.detail
        color: Theme.text3
        Accessible.ignored: true
    }
}
