pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The list of places.
FocusScope {
    id: sidebar

    required property SidebarModel places
    required property PlaceMenu placeMenu
    required property NewsroomActions newsrooms
    required property BeatActions beats

    signal hideRequested
    signal keysRequested
    signal storyDropped(key: string, storyID: string)
    signal newsroomRequested
    signal resized(width: int)

    function openMenuFor(item: SidebarItem, x: real, y: real) {
        if (item.isNewsroom)
            newsroomMenu.openFor(item, item.key, x, y);
        else if (item.isBeat)
            beatMenu.openFor(item, x, y);
        else
            menu.openFor(item, item.key, x, y);
    }
    /// The menu of the row with the keyboard's focus.
    function openMenu() {
        const item = view.currentItem as SidebarItem;
        if (item)
            openMenuFor(item, Theme.space8, item.height / 2);
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.sidebar
    }

    Item {
        id: head

        width: parent.width
        height: Theme.toolbar

        DeskText {
            x: Theme.space4
            width: add.x - x
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.BaseStrong
            text: qsTr("Tarnwick Brell")
        }
        IconButton {
            id: add

            anchors.right: hide.left
            anchors.verticalCenter: parent.verticalCenter
            symbol: "plus"
            text: qsTr("New newsroom")
            key: qsTr("Ctrl N")
            onClicked: sidebar.newsroomRequested()
        }
        IconButton {
            id: hide

            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            symbol: "sidebar.left"
            text: qsTr("Hide the sidebar")
            key: qsTr("Ctrl \\")
            onClicked: sidebar.hideRequested()
        }
    }

    ListView {
        id: view

        anchors.top: head.bottom
        anchors.bottom: foot.top
        width: parent.width
        clip: true
        focus: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        highlightFollowsCurrentItem: false
        keyNavigationEnabled: false
        model: sidebar.places.rows
        currentIndex: -1
        Accessible.role: Accessible.Tree
        Accessible.name: qsTr("Places")

        delegate: SidebarItem {
            id: row

            width: view.width
            storyKind: sidebar.places.storyKind
            keyboardHere: view.activeFocus && ListView.isCurrentItem
            onClicked: {
                view.currentIndex = index;
                sidebar.places.activate(key);
            }
            onMenuWanted: (x, y) => {
                view.currentIndex = index;
                sidebar.openMenuFor(row, x, y);
            }
            onStoryDropped: storyID => sidebar.storyDropped(key, storyID)
            onPulled: at => view.dropRow = view.dropRowOf(row, at)
            onDropped: {
                const target = view.itemAtIndex(view.dropRow) as SidebarItem;
                view.dropRow = -1;
                if (target && isBeat)
                    sidebar.beats.moveOnto(key, target.key);
                else if (target)
                    sidebar.newsrooms.moveOnto(key, target.key);
            }
        }

        T.ScrollBar.vertical: ThinScrollBar {}

        Rectangle {
            parent: view.contentItem
            x: Theme.space2
            y: (view.itemAtIndex(view.dropRow)?.y ?? 0) - height / 2
            z: 1
            width: view.width - 2 * x
            height: Theme.focusRing
            visible: view.dropRow >= 0
            color: Theme.accent
        }
        NewsroomNameField {
            id: renaming

            list: view
            onRenamed: (place, name) => sidebar.newsrooms.rename(place, name)
        }
        NewsroomMenu {
            id: newsroomMenu

            newsrooms: sidebar.newsrooms
            onRenameWanted: renaming.start(row as SidebarItem)
            onSymbolWanted: symbols.openFor(row as SidebarItem)
        }
        BeatMenu {
            id: beatMenu

            beats: sidebar.beats
        }
        SymbolPicker {
            id: symbols

            property string place

            function openFor(item: SidebarItem) {
                place = item.key;
                current = item.symbol;
                parent = item;
                open();
            }

            symbols: sidebar.newsrooms.symbols
            current: ""
            onChosen: name => sidebar.newsrooms.setSymbol(place, name)
        }

        /// Keeps the row of the current place visible.
        readonly property int placeRow: sidebar.places.currentRow
        onPlaceRowChanged: showPlace()
        onHeightChanged: showPlace()
        onActiveFocusChanged: if (activeFocus && currentIndex < 0)
            currentIndex = Math.max(0, sidebar.places.currentRow)

        function showPlace() {
            if (placeRow >= 0)
                positionViewAtIndex(placeRow, ListView.Contain);
        }
        function stepBy(by: int) {
            let next = currentIndex + by;
            while (next >= 0 && next < count && (itemAtIndex(next) as SidebarItem)?.isSection)
                next += by;
            if (next < 0 || next >= count)
                return;
            currentIndex = next;
            positionViewAtIndex(next, ListView.Contain);
        }

        Keys.onUpPressed: event => event.modifiers & Qt.AltModifier ? move(-1) : stepBy(-1)
        Keys.onDownPressed: event => event.modifiers & Qt.AltModifier ? move(1) : stepBy(1)
        Keys.onReturnPressed: activateCurrent()
        Keys.onEnterPressed: activateCurrent()
        Keys.onSpacePressed: activateCurrent()
        Keys.onLeftPressed: expandCurrent(false)
        Keys.onRightPressed: expandCurrent(true)

        Keys.onDeletePressed: {
            if (record?.isNewsroom)
                sidebar.newsrooms.remove(record.key);
            else if (record)
                sidebar.beats.remove(record.key);
        }
        Keys.onPressed: event => {
            event.accepted = record !== null && event.key === Qt.Key_F2;
            if (!event.accepted)
                return;
            if (record.isNewsroom)
                renaming.start(record);
            else
                sidebar.beats.edit(record.key);
        }

        /// The newsroom or beat of the row with the keyboard, null on other rows.
        readonly property SidebarItem record: {
            const item = currentItem as SidebarItem;
            return item?.isNewsroom || item?.isBeat ? item : null;
        }
        /// Where a dragged newsroom or beat would go, -1 while none is dragged.
        property int dropRow: -1

        function isSameKind(one: SidebarItem, other: SidebarItem): bool {
            return one !== null && other !== null && one.isNewsroom === other.isNewsroom && one.isBeat === other.isBeat;
        }
        function dropRowOf(dragged: SidebarItem, at: point): int {
            const here = contentItem.mapFromItem(null, at);
            const row = indexAt(width / 2, here.y);
            return isSameKind(dragged, itemAtIndex(row) as SidebarItem) ? row : -1;
        }
        function move(by: int) {
            if (!record) {
                stepBy(by);
                return;
            }
            const next = isSameKind(record, itemAtIndex(currentIndex + by) as SidebarItem);
            if (record.isBeat)
                sidebar.beats.moveBy(record.key, by);
            else
                sidebar.newsrooms.moveBy(record.key, by);
            if (next)
                currentIndex += by;
        }
        function activateCurrent() {
            const item = currentItem as SidebarItem;
            if (item)
                sidebar.places.activate(item.key);
        }
        function expandCurrent(expanded: bool) {
            const item = currentItem as SidebarItem;
            if (item?.isGroup)
                sidebar.places.setExpanded(item.key, expanded);
        }
    }

    Item {
        id: foot

        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.sidebarFoot

        Hairline {
            width: parent.width
        }
        DeskText {
            x: Theme.space4
            width: keys.x - x
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            color: Theme.text3
            text: sidebar.places.foot
        }
        IconButton {
            id: keys

            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            symbol: "keyboard"
            text: qsTr("All keys")
            key: "?"
            onClicked: sidebar.keysRequested()
        }
    }
    Hairline {
        vertical: true
        anchors.right: parent.right
        height: parent.height
    }
    PlaceContextMenu {
        id: menu

        places: sidebar.placeMenu
    }
    MouseArea {
        x: sidebar.width - Theme.space1
        width: 2 * Theme.space1
        height: sidebar.height
        cursorShape: Qt.SplitHCursor
        preventStealing: true
        onPositionChanged: mouse => sidebar.resized(Math.round(x + mouse.x))
    }
}
