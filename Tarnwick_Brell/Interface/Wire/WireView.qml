import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The list with the reader beside it, or below it where there is too little room.
FocusScope {
    id: wire

    required property StoryListController stories
    required property SelectedStory selected
    required property ClusterListModel clusters
    required property StoryActions storyActions
    required property ReadingPlace readingPlace
    required property ActionModel actions
    required property StoryKeeping keeping
    property int readerPlace: WindowState.Right
    property int listWidth: Theme.wireWidth
    property int listHeight: Theme.wireLeast
    readonly property Item readerPane: reader

    signal linkWanted(link: string)
    signal placeWanted(key: string)
    signal listResized(width: int)
    signal clustersWanted(wanted: bool)

    readonly property bool besides: readerPlace === WindowState.Right && width - Theme.wireLeast >= Theme.readerLeast
    readonly property bool below: readerPlace !== WindowState.Hidden && !besides

    function focusList() {
        list.view.forceActiveFocus();
    }
    function openMenu() {
        list.openMenu();
    }
    /// The Space key: pages through the story, then goes to the next unread one.
    function pageOn() {
        if (reader.visible && reader.pageDown())
            return;
        selected.stepUnread(1);
    }

    WireList {
        id: list

        stories: wire.stories
        selected: wire.selected
        storyActions: wire.storyActions
        actions: wire.actions
        clusters: wire.clusters
        readingPlace: wire.readingPlace
        focus: true
        onClustersWanted: wanted => wire.clustersWanted(wanted)
        width: wire.besides ? Math.max(Theme.wireLeast, Math.min(wire.listWidth, wire.width - Theme.readerLeast)) : wire.width
        height: wire.below ? Math.round(wire.height * 0.5) : wire.height
        Keys.onSpacePressed: wire.pageOn()
    }
    Hairline {
        id: edge

        vertical: wire.besides
        visible: wire.besides || wire.below
        x: wire.besides ? list.width : 0
        y: wire.besides ? 0 : list.height
        width: wire.besides ? Theme.line : wire.width
        height: wire.besides ? wire.height : Theme.line
    }
    ReaderPane {
        id: reader

        reader: wire.selected.reader
        storyActions: wire.storyActions
        actions: wire.actions
        keeping: wire.keeping
        visible: edge.visible
        x: wire.besides ? list.width + Theme.line : 0
        y: wire.besides ? 0 : list.height + Theme.line
        width: wire.width - x
        height: wire.height - y
        onStoryWanted: storyID => wire.selected.open(storyID)
        onLinkWanted: link => wire.linkWanted(link)
        onPlaceWanted: key => wire.placeWanted(key)
    }
    MouseArea {
        visible: wire.besides
        x: list.width - Theme.space1
        width: 2 * Theme.space1
        height: wire.height
        cursorShape: Qt.SplitHCursor
        preventStealing: true
        onPositionChanged: mouse => wire.listResized(Math.max(Theme.wireLeast, Math.min(wire.width - Theme.readerLeast, x + mouse.x)))
    }
}
