import QtQuick
import TarnwickBrell.Controls

/// The title of a table of services, with why it is old.
Item {
    id: line

    required property StatusRow row

    implicitHeight: PageSizes.tableTitle

    DeskText {
        id: tableTitle

        x: Theme.gridPadding
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.BaseStrong
        text: line.row.title
        color: line.row.ink
        Accessible.role: Accessible.Heading
    }
    DeskText {
        id: tableDetail

        anchors.left: tableTitle.right
        anchors.leftMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Secondary
        text: line.row.detail
        color: Theme.text3
    }
    Symbol {
        id: clock

        anchors.right: warning.left
        anchors.rightMargin: Theme.badgeGap
        anchors.verticalCenter: parent.verticalCenter
        visible: line.row.warning
        name: "clock"
        size: Theme.iconInMeta
        color: Theme.amber
    }
    DeskText {
        id: warning

        anchors.right: retry.left
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, retry.x - tableDetail.x - tableDetail.width - PageSizes.columnGap - Theme.icon)
        type: DeskText.Secondary
        text: line.row.warning
        color: Theme.amber
    }
    DeskButton {
        id: retry

        anchors.right: parent.right
        anchors.rightMargin: Theme.gridPadding
        anchors.verticalCenter: parent.verticalCenter
        visible: line.row.warning
        text: qsTr("Retry")
        onClicked: line.row.activated()
    }
}
