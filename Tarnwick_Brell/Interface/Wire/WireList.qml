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
    required property ClusterListModel clusters
    required property ReadingPlace readingPlace
    readonly property Item view: clusters.isShown ? clusterView : storyView

    signal clustersWanted(wanted: bool)

    /// The menu of the selected story, as the Menu key and Shift+F10 open it.
    function openMenu() {
        if (clusters.isShown)
            clusterView.openMenu();
        else if (storyView.currentItem)
            menu.popup(storyView.currentItem, Theme.rowText, Theme.rowText);
    }
    /// Scrolls the selected story into view.
    function reveal() {
        if (selected.row >= 0)
            storyView.positionViewAtIndex(selected.row, ListView.Contain);
    }

    Timer {
        id: revealing

        interval: Theme.nextTurn
        onTriggered: wireList.reveal()
    }
    Timer {
        id: scrolled

        interval: Theme.scrollRest
        onTriggered: wireList.readingPlace.setTopRow(storyView.atYBeginning ? 0 : storyView.indexAt(0, storyView.contentY))
    }
    Connections {
        target: wireList.readingPlace

        function onTopRowWanted(row: int) {
            storyView.positionViewAtIndex(row, ListView.Beginning);
        }
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
            width: Math.min(implicitWidth, (shownAs.visible ? shownAs.x : parent.width) / 2 - x)
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.BaseStrong
            text: wireList.stories.isSearching ? qsTr("Search in all stories") : wireList.stories.title
            Accessible.role: Accessible.Heading
        }
        DeskText {
            anchors.left: title.right
            anchors.leftMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            visible: x + width < (pill.visible ? pill.x : shownAs.x)
            type: DeskText.Secondary
            color: Theme.text3
            text: wireList.stories.unreadText
        }
        SegmentedControl {
            id: shownAs

            anchors.right: parent.right
            anchors.rightMargin: Theme.rowEnd
            anchors.verticalCenter: parent.verticalCenter
            visible: !wireList.stories.isSearching
            small: true
            label: qsTr("One row for each")
            model: [qsTr("Stories"), qsTr("Clusters")]
            currentIndex: wireList.clusters.isShown ? 1 : 0
            onActivated: index => wireList.clustersWanted(index === 1)
        }
        Pill {
            id: pill

            anchors.right: shownAs.visible ? shownAs.left : parent.right
            anchors.rightMargin: shownAs.visible ? Theme.space2 : Theme.rowEnd
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
        id: storyView

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: !wireList.clusters.isShown
        clip: true
        focus: visible
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
        onContentYChanged: scrolled.restart()
        readonly property bool isRead: wireList.selected.hasStory || !atYBeginning
        onIsReadChanged: if (visible)
            wireList.stories.list.holdsArrivals = isRead

        delegate: WireRow {
            width: storyView.width
            storyActions: wireList.storyActions
            listFocused: storyView.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                storyView.forceActiveFocus();
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
            case Qt.Key_Home:
                wireList.selected.row = 0;
                break;
            case Qt.Key_End:
                wireList.selected.row = storyView.count - 1;
                break;
            case Qt.Key_PageDown:
                wireList.selected.step(Math.max(1, Math.floor(storyView.height / Theme.wireRowTall) - 1));
                break;
            case Qt.Key_PageUp:
                wireList.selected.step(-Math.max(1, Math.floor(storyView.height / Theme.wireRowTall) - 1));
                break;
            default:
                event.accepted = false;
            }
        }
    }

    WireClusters {
        id: clusterView

        anchors.fill: storyView
        visible: wireList.clusters.isShown
        focus: visible
        clusters: wireList.clusters
        stories: wireList.stories
        storyActions: wireList.storyActions
        onMenuWanted: (row, x, y) => menu.popup(row, x, y)
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
            storyView.positionViewAtBeginning();
            clusterView.positionViewAtBeginning();
        }
    }

    StoryMenu {
        id: menu

        actions: wireList.actions
    }
    WireSkeleton {
        anchors.fill: storyView
        visible: storyView.count === 0 && wireList.stories.emptyMessage === ""
    }
    EmptyState {
        anchors.centerIn: storyView
        width: storyView.width - 2 * Theme.rowText
        visible: storyView.count === 0 && text !== ""
        symbol: wireList.stories.isSearching ? "magnifyingglass" : "tray"
        text: wireList.stories.emptyMessage
        hint: wireList.stories.emptyHint
        action: wireList.stories.canClear ? qsTr("Show all") : ""
        onActed: wireList.stories.clearAll()
    }
}
