import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Pages
import TarnwickBrell.Wire

/// The bar above the page: its title or its search and filters, and the state of fetching.
Item {
    id: bar

    required property WindowModel desk
    property bool sidebarHidden: false

    signal sidebarRequested
    signal leftForList
    signal leftForPage

    readonly property bool isEditing: desk.editor.isEditing
    readonly property bool isWire: desk.view === WindowModel.Stories
    readonly property bool hasPageBar: pageBar.bar !== null
    readonly property int start: sidebarHidden ? show.x + show.width : 0

    function search() {
        if (isWire) {
            wireBar.searchField.forceActiveFocus();
            wireBar.searchField.selectAll();
        } else if (hasPageBar) {
            pageBar.bar.search();
        } else {
            pageSearch.forceActiveFocus();
        }
    }

    implicitHeight: Theme.toolbar

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    IconButton {
        id: show

        x: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        visible: bar.sidebarHidden
        symbol: "sidebar.left"
        text: qsTr("Show the sidebar")
        key: qsTr("Ctrl \\")
        onClicked: bar.sidebarRequested()
    }
    WireToolbar {
        id: wireBar

        x: bar.start
        width: live.x - x - Theme.space3
        height: parent.height
        visible: bar.isWire
        stories: bar.desk.storyList
        onLeftForList: bar.leftForList()
    }
    DeskText {
        id: title

        x: bar.start + Theme.gridPadding
        width: bar.hasPageBar ? implicitWidth : Math.min(implicitWidth, pageSearch.x - x - Theme.space3)
        anchors.verticalCenter: parent.verticalCenter
        visible: !bar.isWire && !bar.isEditing
        type: DeskText.Heading
        text: bar.desk.page ? bar.desk.page.title : bar.desk.newsroom.title
        Accessible.role: Accessible.Heading
    }
    DeskText {
        anchors.left: title.right
        anchors.leftMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        visible: !bar.isWire && !bar.hasPageBar && !bar.isEditing && x + width < pageSearch.x - Theme.space3
        type: DeskText.Secondary
        color: Theme.text3
        text: bar.desk.page ? bar.desk.page.fact : bar.desk.newsroom.subtitle
    }
    SearchField {
        id: pageSearch

        anchors.right: live.left
        anchors.rightMargin: Theme.space4
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.pageSearch
        visible: !bar.isWire && !bar.hasPageBar && !bar.isEditing
        placeholderText: qsTr("Search the wire")
        key: qsTr("Ctrl F")
        onTextEdited: {
            const words = text;
            clear();
            bar.desk.searchFor(words);
            bar.search();
            wireBar.searchField.deselect();
            wireBar.searchField.cursorPosition = words.length;
        }
    }
    PageBarView {
        id: pageBar

        anchors.left: title.right
        anchors.leftMargin: Theme.space4
        anchors.right: live.left
        anchors.rightMargin: live.visible ? Theme.space2 : 0
        height: parent.height
        visible: bar.hasPageBar
        page: bar.desk.page
        onLeftForPage: bar.leftForPage()
    }
    Chip {
        id: live

        anchors.right: corner.left
        anchors.rightMargin: corner.visible ? Theme.space2 : 0
        anchors.verticalCenter: parent.verticalCenter
        width: visible ? implicitWidth : 0
        visible: bar.desk.refresh.isLive && !bar.isEditing
        active: true
        text: bar.desk.refresh.liveText
        tip: qsTr("Sources are fetched every minute. A click ends it.")
        onClicked: bar.desk.refresh.endLive()
        onCleared: bar.desk.refresh.endLive()
    }
    RefreshCorner {
        id: corner

        anchors.right: edit.left
        anchors.rightMargin: edit.visible ? Theme.space2 : 0
        anchors.verticalCenter: parent.verticalCenter
        width: visible ? implicitWidth : 0
        visible: !bar.hasPageBar && !bar.isEditing
        refresh: bar.desk.refresh
    }
    DeskButton {
        id: edit

        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        width: visible ? implicitWidth : 0
        visible: bar.desk.editor.canEdit && !bar.isEditing
        symbol: "pencil"
        text: qsTr("Edit")
        key: "e"
        onClicked: bar.desk.editor.begin()
    }
    EditBar {
        anchors.fill: parent
        anchors.leftMargin: bar.start + Theme.gridPadding
        visible: bar.isEditing
        editor: bar.desk.editor
        undo: bar.desk.undo
        title: bar.desk.newsroom.title
    }
    Hairline {
        anchors.bottom: parent.bottom
        width: parent.width
    }
    ProgressLine {
        anchors.bottom: parent.bottom
        width: parent.width
        running: bar.desk.refresh.isRefreshing
        value: bar.desk.refresh.progress
    }
}
