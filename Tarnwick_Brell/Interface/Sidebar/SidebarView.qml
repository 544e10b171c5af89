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

    signal hideRequested
    signal keysRequested
    signal resized(width: int)

    /// The menu of the row with the keyboard's focus.
    function openMenu() {
        const item = view.currentItem as SidebarItem;
        if (item)
            menu.openFor(item, item.key, Theme.space8, item.height / 2);
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
            width: hide.x - x
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.BaseStrong
            text: qsTr("Tarnwick Brell")
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
            width: view.width
            keyboardHere: view.activeFocus && ListView.isCurrentItem
            onClicked: {
                view.currentIndex = index;
                sidebar.places.activate(key);
            }
            onMenuWanted: (x, y) => menu.openFor(this, key, x, y)
        }

        T.ScrollBar.vertical: ThinScrollBar {}

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

        Keys.onUpPressed: stepBy(-1)
        Keys.onDownPressed: stepBy(1)
        Keys.onReturnPressed: activateCurrent()
        Keys.onEnterPressed: activateCurrent()
        Keys.onSpacePressed: activateCurrent()
        Keys.onLeftPressed: expandCurrent(false)
        Keys.onRightPressed: expandCurrent(true)

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
