import QtQuick

/// The frame of a panel. Its children form the body, 12 px from the left and right edges; with
/// `flush` a list runs to the lower edge and is clipped there. `extras` are left of the fact.
FocusScope {
    id: card

    signal menuRequested(anchor: Item)

    property string symbol
    required property string title
    /// One quiet fact: an age, a range, a count.
    property string fact
    property color factColor: Theme.text3
    property bool hasMenu: true
    property bool draggable: false
    property bool flush: false
    default property alias body: bodySlot.data
    property alias extras: extrasRow.data
    property alias menuButton: menu

    /// On the board there is no card, and the panel begins at its edge.
    readonly property int padding: Theme.board ? 0 : Theme.panelPadding

    implicitHeight: Theme.panelHeader + bodySlot.implicitHeight + (flush ? 0 : Theme.panelPadding)
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    Rectangle {
        anchors.fill: parent
        visible: !Theme.board
        radius: Theme.radiusPanel
        color: Theme.surface
        border.width: Theme.line
        border.color: Theme.hairline
    }
    Hairline {
        y: Theme.panelHeader - Theme.line
        width: parent.width
        visible: Theme.board
    }
    Row {
        id: start
        x: card.padding
        height: Theme.panelHeader
        spacing: Theme.space2

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: card.draggable
            name: "circle.grid.2x3"
            size: Theme.iconInMeta
            color: Theme.text3
        }
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: card.symbol
            name: card.symbol
            size: Theme.iconInHeader
        }
    }
    DeskText {
        anchors.left: start.right
        anchors.leftMargin: Theme.badgeGap
        anchors.right: extrasRow.left
        anchors.rightMargin: Theme.space2
        height: Theme.panelHeader
        verticalAlignment: Text.AlignVCenter
        type: DeskText.SecondaryStrong
        text: card.title
        Accessible.role: Accessible.Heading
    }
    Row {
        id: extrasRow
        anchors.right: factText.left
        anchors.rightMargin: children.length && factText.visible ? Theme.badgeGap : 0
        height: Theme.panelHeader
        spacing: Theme.badgeGap
    }
    DeskText {
        id: factText
        anchors.right: menu.left
        anchors.rightMargin: Theme.space1
        width: visible ? implicitWidth : 0
        height: Theme.panelHeader
        verticalAlignment: Text.AlignVCenter
        visible: card.fact
        type: DeskText.Meta
        text: card.fact
        color: card.factColor
    }
    IconButton {
        id: menu
        anchors.right: parent.right
        anchors.rightMargin: card.hasMenu ? Theme.space1 : Math.max(0, card.padding - Theme.space1)
        y: (Theme.panelHeader - height) / 2
        width: card.hasMenu ? implicitWidth : 0
        visible: card.hasMenu
        symbol: "ellipsis"
        text: qsTr("Menu for %1").arg(card.title)
        onClicked: card.menuRequested(menu)
    }
    Item {
        id: bodySlot
        anchors.fill: parent
        anchors.topMargin: Theme.panelHeader
        anchors.leftMargin: card.padding
        anchors.rightMargin: card.padding
        anchors.bottomMargin: card.flush ? Theme.line : Theme.panelPadding
        implicitHeight: childrenRect.height
        clip: true
    }
}
