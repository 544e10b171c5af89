pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The list with one row for stories that report the same news.
ListView {
    id: view

    required property ClusterListModel clusters
    required property StoryListController stories
    required property StoryActions storyActions

    signal menuWanted(row: Item, x: real, y: real)

    function reveal() {
        if (clusters.currentRow >= 0)
            positionViewAtIndex(clusters.currentRow, ListView.Contain);
    }
    /// The menu of the selected row.
    function openMenu() {
        if (currentItem)
            menuWanted(currentItem, Theme.rowText, Theme.rowText);
    }

    clip: true
    activeFocusOnTab: true
    reuseItems: true
    cacheBuffer: Math.max(0, height)
    boundsBehavior: Flickable.StopAtBounds
    highlightFollowsCurrentItem: false
    keyNavigationEnabled: false
    model: clusters
    currentIndex: clusters.currentRow
    Accessible.role: Accessible.List
    Accessible.name: qsTr("%1, clusters").arg(stories.title)

    onHeightChanged: revealing.restart()
    // Nothing moves while somebody reads, as in the list of stories.
    readonly property bool isRead: visible && (clusters.currentRow >= 0 || !atYBeginning)
    onIsReadChanged: if (visible)
        stories.list.holdsArrivals = isRead

    delegate: ClusterRow {
        width: view.width
        storyActions: view.storyActions
        listFocused: view.activeFocus
        isCurrent: ListView.isCurrentItem
        onChosen: {
            view.forceActiveFocus();
            view.clusters.choose(index);
        }
        onToggled: view.clusters.toggle(index)
        onOpened: view.storyActions.openInBrowser()
        onMenuWanted: (x, y) => {
            chosen();
            view.menuWanted(this, x, y);
        }
    }

    T.ScrollBar.vertical: ThinScrollBar {}

    Keys.onUpPressed: clusters.step(-1)
    Keys.onDownPressed: clusters.step(1)
    Keys.onLeftPressed: clusters.setOpen(clusters.currentRow, false)
    Keys.onRightPressed: clusters.setOpen(clusters.currentRow, true)
    Keys.onReturnPressed: storyActions.openInBrowser()
    Keys.onEnterPressed: storyActions.openInBrowser()
    Keys.onPressed: event => {
        event.accepted = true;
        switch (event.key) {
        case Qt.Key_Home:
            clusters.choose(0);
            break;
        case Qt.Key_End:
            clusters.choose(count - 1);
            break;
        case Qt.Key_PageDown:
            clusters.step(Math.max(1, Math.floor(height / Theme.clusterRow) - 1));
            break;
        case Qt.Key_PageUp:
            clusters.step(-Math.max(1, Math.floor(height / Theme.clusterRow) - 1));
            break;
        default:
            event.accepted = false;
        }
    }

    Timer {
        id: revealing

        interval: Theme.nextTurn
        onTriggered: view.reveal()
    }
    Connections {
        target: view.clusters

        // After the view has applied the model's changes.
        function onCurrentRowChanged() {
            revealing.restart();
        }
    }
}
