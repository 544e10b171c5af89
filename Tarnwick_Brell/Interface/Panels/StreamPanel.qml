pragma ComponentBehavior: Bound

import TarnwickBrell.Models

/// Stories as they come.
StoryPanelList {
    id: panel

    required property StreamPanelModel content

    name: qsTr("Stories")
    origin: content
    model: content.stories
    onOpened: index => content.open(index)
    delegate: CompactStoryRow {}
}
