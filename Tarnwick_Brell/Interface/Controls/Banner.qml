import QtQuick

/// One quiet bar over a list or below the toolbar: offline, stale, a notice.
Rectangle {
    id: band

    signal acted

    property string symbol
    property color symbolColor: Theme.text2
    required property string text
    property string action
    property int padding: Theme.panelPadding

    implicitHeight: Theme.bar
    color: Theme.field
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Symbol {
        id: mark
        x: band.padding
        anchors.verticalCenter: parent.verticalCenter
        width: band.symbol ? size : 0
        visible: band.symbol
        name: band.symbol
        size: Theme.iconInHeader
        color: band.symbolColor
    }
    DeskText {
        anchors.left: mark.right
        anchors.leftMargin: band.symbol ? Theme.space2 : 0
        anchors.right: link.left
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Secondary
        text: band.text
        color: Theme.text2
    }
    LinkText {
        id: link
        anchors.right: parent.right
        anchors.rightMargin: band.padding
        anchors.verticalCenter: parent.verticalCenter
        visible: band.action
        text: band.action
        onClicked: band.acted()
    }
    Hairline {
        anchors.bottom: parent.bottom
        width: parent.width
    }
}
