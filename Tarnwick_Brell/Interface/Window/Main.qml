import QtQuick
import QtQuick.Window
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Newsrooms
import TarnwickBrell.Pages
import TarnwickBrell.Palette
import TarnwickBrell.Sheets
import TarnwickBrell.Sidebar
import TarnwickBrell.Window
import TarnwickBrell.Wire

/// The window: places at the left, the page beside them.
Window {
    id: window

    required property WindowModel desk

    readonly property WindowState state: desk.state
    readonly property string placeTitle: desk.page ? desk.page.title
        : desk.view === WindowModel.Stories ? desk.storyList.title : desk.newsroom.title

    readonly property BoardModel board: desk.board
    /// The board's layout is that of the usual window, as large as the screen makes it.
    readonly property real boardScale: board.isShown
        ? Theme.boardScale * Math.max(1, Math.min(width / Theme.windowWidth, height / Theme.windowHeight)) : 1

    width: Theme.windowWidth
    height: Theme.windowHeight
    minimumWidth: Theme.windowLeastWidth
    minimumHeight: Theme.windowLeastHeight
    title: qsTr("%1 – Tarnwick Brell").arg(placeTitle)
    color: Theme.canvas

    // Popups too, which are children of the same item.
    Component.onCompleted: Mirror.flip(contentItem)

    function focusPage() {
        if (wire.visible)
            wire.focusList();
        else if (pages.visible)
            pages.forceActiveFocus();
        else
            panels.forceActiveFocus();
    }

    /// The item that had the focus may be gone with its page or sheet, and keys would have no target.
    function keepFocus() {
        const now = activeFocusItem;
        if (!now || !now.visible || now === contentItem)
            focusPage();
    }

    Binding {
        target: Theme
        property: "dark"
        value: window.desk.appearance.isDark
    }
    Binding {
        target: Theme
        property: "fontScale"
        value: window.desk.appearance.fontScale * window.boardScale
    }
    Binding {
        target: Theme
        property: "density"
        value: window.desk.appearance.density
    }
    Binding {
        target: Theme
        property: "board"
        value: window.board.isShown
    }
    Binding {
        target: Theme
        property: "highContrast"
        value: window.desk.appearance.highContrast
    }
    Binding {
        target: Theme
        property: "reducedMotion"
        value: window.desk.appearance.reducedMotion
    }
    Binding {
        target: Theme
        property: "showsPictures"
        value: window.desk.appearance.showsPictures
    }

    FocusScope {
        anchors.fill: parent
        focus: visible
        visible: !window.board.isShown

        SidebarView {
            id: sidebar

            width: window.state.sidebarShown ? window.state.sidebarWidth : 0
            height: parent.height
            visible: window.state.sidebarShown
            places: window.desk.sidebar
            placeMenu: window.desk.placeMenu
            z: 1
            newsrooms: window.desk.newsroomActions
            beats: window.desk.beatActions
            onStoryDropped: (key, storyID) => window.desk.dropStory(key, storyID)
            onNewsroomRequested: window.desk.actions.trigger(DeskAction.NewNewsroom)
            onKeysRequested: keys.open()
            onHideRequested: window.state.sidebarShown = false
            onResized: width => window.state.sidebarWidth = width
        }

        FocusScope {
            id: page

            x: sidebar.width
            width: parent.width - x
            height: parent.height
            focus: true

            Toolbar {
                id: toolbar

                width: parent.width
                desk: window.desk
                sidebarHidden: !window.state.sidebarShown
                onSidebarRequested: window.state.sidebarShown = true
                onLeftForList: wire.focusList()
                onLeftForPage: pages.forceActiveFocus()
            }
            Banner {
                id: notice

                readonly property bool isTrouble: window.desk.refresh.libraryTrouble !== ""

                y: toolbar.height
                width: parent.width
                height: visible ? implicitHeight : 0
                visible: isTrouble || window.desk.refresh.isOffline
                padding: Theme.gridPadding
                symbol: isTrouble ? "exclamationmark.triangle" : "wifi.slash"
                symbolColor: isTrouble ? Theme.red : Theme.text2
                text: isTrouble ? window.desk.refresh.libraryTrouble : window.desk.refresh.offlineText
                action: isTrouble ? qsTr("Check, repair or restore") : qsTr("Try now")
                onActed: {
                    if (isTrouble)
                        window.desk.showSheet("settings:library");
                    else
                        window.desk.refresh.refresh();
                }
            }
            WireView {
                id: wire

                y: notice.y + notice.height
                width: parent.width
                height: parent.height - y - findBar.height
                visible: window.desk.view === WindowModel.Stories
                focus: visible
                stories: window.desk.storyList
                selected: window.desk.selectedStory
                clusters: window.desk.clusters
                readingPlace: window.desk.readingPlace
                storyActions: window.desk.storyActions
                actions: window.desk.actions
                keeping: window.desk.keeping
                readerPlace: window.state.reader
                listWidth: window.state.listWidth
                onListResized: width => window.state.listWidth = width
                onLinkWanted: link => window.desk.linkWanted(link)
                onPlaceWanted: key => window.desk.open(key)
                onClustersWanted: wanted => window.desk.setClustered(wanted)
            }
            NewsroomView {
                id: panels

                y: wire.y
                width: parent.width
                height: wire.height
                visible: window.desk.view === WindowModel.Newsroom
                focus: visible
                newsroom: window.desk.newsroom
                editor: window.desk.editor
                onPanelMenuWanted: panel => window.desk.editor.openOptions(panel)
            }
            PageView {
                id: pages

                y: wire.y
                width: parent.width
                height: wire.height
                visible: window.desk.view === WindowModel.Page
                focus: visible
                page: window.desk.page
            }
            FindMarks {
                x: wire.x
                y: wire.y
                width: wire.width
                height: wire.height
                find: window.desk.find
                page: wire.visible ? wire : panels.visible ? panels : pages
                detail: wire.visible ? wire.readerPane : null
                searchesPage: !wire.visible
                ground: Theme.match
            }
            RowMenuArea {
                id: rowArea

                x: wire.x
                y: wire.y
                width: wire.width
                height: wire.height
                visible: !wire.visible && !window.desk.editor.isEditing
                page: panels.visible ? panels : pages
                onMenuWanted: (x, y, facts) => rowMenu.openFor(rowArea, x, y, facts)
            }
            RowContextMenu {
                id: rowMenu

                rowMenu: window.desk.rowMenu
            }
            FindBar {
                id: findBar

                anchors.bottom: parent.bottom
                width: parent.width
                find: window.desk.find
                actions: window.desk.actions
                onClosed: window.focusPage()
            }
        }
    }

    BoardView {
        anchors.fill: parent
        focus: visible
        visible: window.board.isShown
        content: window.board
    }
    DropArea {
        id: drop

        anchors.fill: parent
        keys: ["text/uri-list", "text/plain"]
        // A story of the window itself stays where it is.
        onEntered: drag => drag.accepted = !drag.source
        onDropped: drop => {
            window.desk.drop(drop.urls, drop.text);
            drop.accept(Qt.CopyAction);
        }

        DropHint {
            anchors.fill: parent
            visible: drop.containsDrag
        }
    }
    ActionShortcuts {
        actions: window.desk.actions
        textFocused: window.activeFocusItem instanceof TextInput || window.activeFocusItem instanceof TextEdit
        covered: palette.opened || keys.opened || window.desk.sheet !== null || window.board.isShown
    }
    CommandPalette {
        id: palette

        palette: window.desk.palette
        onClosed: window.keepFocus()
    }
    KeysSheet {
        id: keys

        actions: window.desk.actions
    }
    // A sheet that ends its own work takes the focus with it.
    Timer {
        id: focusing

        interval: Theme.nextTurn
        onTriggered: window.keepFocus()
    }
    SheetHost {
        desk: window.desk
    }
    Toast {
        id: toast

        /// The action of its button.
        property int offers: DeskAction.Undo
    }
    Connections {
        target: window.desk.undo
        // All windows share the steps; the one in front speaks of them.
        enabled: window.active

        // Its button undoes the last step, which must be the one that it speaks of.
        function onChanged() {
            if (toast.action !== "")
                toast.close();
        }
        function onNoticed(notice: string) {
            toast.offers = DeskAction.Undo;
            toast.show(notice, qsTr("Undo"));
        }
        function onUndone(text: string) {
            toast.offers = DeskAction.Redo;
            toast.show(qsTr("Undone: %1.").arg(text), qsTr("Redo"));
        }
        function onRedone(text: string) {
            toast.offers = DeskAction.Undo;
            toast.show(qsTr("Done again: %1.").arg(text), qsTr("Undo"));
        }
    }
    Connections {
        target: window.desk

        function onNoticed(sentence: string) {
            toast.show(sentence, "");
        }
        function onSheetChanged() {
            if (!window.desk.sheet)
                focusing.restart();
        }
        function onViewActionWanted(action: int) {
            switch (action) {
            case DeskAction.PageOn:
                wire.pageOn();
                break;
            case DeskAction.Search:
                toolbar.search();
                break;
            case DeskAction.FindInPage:
                findBar.begin();
                break;
            case DeskAction.NextStory:
                pages.step(1);
                break;
            case DeskAction.PreviousStory:
                pages.step(-1);
                break;
            case DeskAction.SwitchPane:
                pages.switchPane();
                break;
            case DeskAction.ShowMenu:
                if (sidebar.activeFocus)
                    sidebar.openMenu();
                else if (wire.visible)
                    wire.openMenu();
                else if (rowArea.visible)
                    rowArea.askAtFocus();
                break;
            case DeskAction.ShowPalette:
                palette.show();
                break;
            case DeskAction.ShowKeys:
                keys.open();
                break;
            }
        }
        function onViewClosed() {
            palette.close();
            keys.close();
        }
    }
    Connections {
        /// How the window was before it filled the screen.
        property int before: Window.Windowed

        target: window.board

        function onShownChanged() {
            if (window.board.isShown) {
                before = window.visibility;
                window.showFullScreen();
            } else {
                window.visibility = before;
                window.focusPage();
            }
        }
    }
    Connections {
        target: window.desk.rowMenu

        function onOpenWanted() {
            rowArea.openRow();
        }
    }
    Connections {
        target: toast

        function onActed() {
            window.desk.actions.trigger(toast.offers);
        }
    }
}
