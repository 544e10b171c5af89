pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The stories of a place, with their header.
FocusScope {
    id: wireList

    required property WirePage page
    readonly property alias view: view

    /// Brings the chosen story into sight.
    function reveal() {
        if (page.currentRow >= 0)
            view.positionViewAtIndex(page.currentRow, ListView.Contain);
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }

    Item {
        id: header

        width: parent.width
        height: Theme.listHeader

        DeskText {
            id: title

            x: Theme.rowText
            width: Math.min(implicitWidth, parent.width / 2 - x)
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.BaseStrong
            text: wireList.page.isSearching ? qsTr("Search in all stories") : wireList.page.title
            Accessible.role: Accessible.Heading
        }
        DeskText {
            anchors.left: title.right
            anchors.leftMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            color: Theme.text3
            text: wireList.page.unreadText
        }
        Pill {
            anchors.right: parent.right
            anchors.rightMargin: Theme.rowEnd
            anchors.verticalCenter: parent.verticalCenter
            shown: wireList.page.list.arrivals > 0
            text: wireList.page.arrivalsText
            onClicked: wireList.page.showArrivals()
        }
        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }

    ListView {
        id: view

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        focus: true
        activeFocusOnTab: true
        reuseItems: true
        cacheBuffer: Math.max(0, height)
        boundsBehavior: Flickable.StopAtBounds
        highlightFollowsCurrentItem: false
        keyNavigationEnabled: false
        model: wireList.page.list
        currentIndex: wireList.page.currentRow
        Accessible.role: Accessible.List
        Accessible.name: wireList.page.title

        // Nothing may move while somebody reads; at rest at the top, news comes in by itself.
        readonly property bool isRead: wireList.page.hasStory || !atYBeginning
        onIsReadChanged: wireList.page.list.holdsArrivals = isRead

        delegate: WireRow {
            width: view.width
            listFocused: view.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                view.forceActiveFocus();
                wireList.page.currentRow = index;
            }
            onOpened: wireList.page.openInBrowser()
        }

        T.ScrollBar.vertical: ThinScrollBar {}

        Keys.onUpPressed: wireList.page.step(-1)
        Keys.onDownPressed: wireList.page.step(1)
        Keys.onReturnPressed: wireList.page.openInBrowser()
        Keys.onEnterPressed: wireList.page.openInBrowser()
        Keys.onPressed: event => {
            event.accepted = true;
            switch (event.key) {
            case Qt.Key_Home:
                wireList.page.currentRow = 0;
                break;
            case Qt.Key_End:
                wireList.page.currentRow = view.count - 1;
                break;
            case Qt.Key_PageDown:
                wireList.page.step(Math.max(1, Math.floor(view.height / Theme.wireRowTall) - 1));
                break;
            case Qt.Key_PageUp:
                wireList.page.step(-Math.max(1, Math.floor(view.height / Theme.wireRowTall) - 1));
                break;
            default:
                event.accepted = false;
            }
        }
    }

    Rectangle {
        anchors.fill: view
        visible: focusShown
        readonly property bool focusShown: view.activeFocus && wireList.page.currentRow < 0
        color: "transparent"
        border.width: Theme.focusRing
        border.color: Theme.accent
    }

    Connections {
        target: wireList.page

        function onCurrentRowChanged() {
            wireList.reveal();
        }
        function onListBegins() {
            view.positionViewAtBeginning();
        }
    }

    WireSkeleton {
        anchors.fill: view
        visible: view.count === 0 && wireList.page.emptyMessage === ""
    }
    EmptyState {
        anchors.centerIn: view
        width: view.width - 2 * Theme.rowText
        visible: view.count === 0 && text !== ""
        symbol: wireList.page.isSearching ? "magnifyingglass" : "tray"
        text: wireList.page.emptyMessage
        hint: wireList.page.emptyHint
        action: wireList.page.canClear ? qsTr("Show all") : ""
        onActed: wireList.page.clearAll()
    }
}
