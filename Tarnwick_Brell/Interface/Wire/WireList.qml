pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The list of stories with its header.
FocusScope {
    id: wireList

    required property StoryListController stories
    required property SelectedStory selected
    required property StoryActions storyActions
    required property ActionModel actions
    readonly property alias view: view

    /// Scrolls the selected story into view.
    function reveal() {
        if (selected.row >= 0)
            view.positionViewAtIndex(selected.row, ListView.Contain);
    }

    Timer {
        id: revealing

        interval: Theme.nextTurn
        onTriggered: wireList.reveal()
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
            text: wireList.stories.isSearching ? qsTr("Search in all stories") : wireList.stories.title
            Accessible.role: Accessible.Heading
        }
        DeskText {
            anchors.left: title.right
            anchors.leftMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            color: Theme.text3
            text: wireList.stories.unreadText
        }
        Pill {
            anchors.right: parent.right
            anchors.rightMargin: Theme.rowEnd
            anchors.verticalCenter: parent.verticalCenter
            shown: wireList.stories.list.arrivals > 0
            text: wireList.stories.arrivalsText
            onClicked: wireList.stories.showArrivals()
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
        model: wireList.stories.list
        currentIndex: wireList.selected.row
        Accessible.role: Accessible.List
        Accessible.name: wireList.stories.title

        // Nothing moves while somebody reads. At the top, without a story, news appears by itself.
        onHeightChanged: revealing.restart()
        readonly property bool isRead: wireList.selected.hasStory || !atYBeginning
        onIsReadChanged: wireList.stories.list.holdsArrivals = isRead

        delegate: WireRow {
            width: view.width
            listFocused: view.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                view.forceActiveFocus();
                wireList.selected.row = index;
            }
            onOpened: wireList.storyActions.openInBrowser()
            onMenuWanted: (x, y) => {
                chosen();
                menu.popup(this, x, y);
            }
        }

        T.ScrollBar.vertical: ThinScrollBar {}

        Keys.onUpPressed: wireList.selected.step(-1)
        Keys.onDownPressed: wireList.selected.step(1)
        Keys.onReturnPressed: wireList.storyActions.openInBrowser()
        Keys.onEnterPressed: wireList.storyActions.openInBrowser()
        Keys.onPressed: event => {
            event.accepted = true;
            switch (event.key) {
            case Qt.Key_Menu:
                if (view.currentItem)
                    menu.popup(view.currentItem, Theme.rowText, Theme.rowText);
                break;
            case Qt.Key_Home:
                wireList.selected.row = 0;
                break;
            case Qt.Key_End:
                wireList.selected.row = view.count - 1;
                break;
            case Qt.Key_PageDown:
                wireList.selected.step(Math.max(1, Math.floor(view.height / Theme.wireRowTall) - 1));
                break;
            case Qt.Key_PageUp:
                wireList.selected.step(-Math.max(1, Math.floor(view.height / Theme.wireRowTall) - 1));
                break;
            default:
                event.accepted = false;
            }
        }
    }

    Connections {
        target: wireList.selected

        // After the view has applied the model's changes.
        function onRowChanged() {
            revealing.restart();
        }
    }
    Connections {
        target: wireList.stories

        function onListBegins() {
            view.positionViewAtBeginning();
        }
    }

    StoryMenu {
        id: menu

        actions: wireList.actions
    }
    WireSkeleton {
        anchors.fill: view
        visible: view.count === 0 && wireList.stories.emptyMessage === ""
    }
    EmptyState {
        anchors.centerIn: view
        width: view.width - 2 * Theme.rowText
        visible: view.count === 0 && text !== ""
        symbol: wireList.stories.isSearching ? "magnifyingglass" : "tray"
        text: wireList.stories.emptyMessage
        hint: wireList.stories.emptyHint
        action: wireList.stories.canClear ? qsTr("Show all") : ""
        onActed: wireList.stories.clearAll()
    }
}
