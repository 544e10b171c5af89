pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The stories that a beat would have shown, with the words that matched on a ground of their own.
Rectangle {
    id: half

    required property BeatPreviewModel preview

    readonly property bool hasStories: preview.state === BeatPreviewModel.Ready

    color: Theme.recess

    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.space6
        visible: !half.hasStories
        text: half.preview.state === BeatPreviewModel.Nothing ? qsTr("What the beat finds appears here.")
                                                              : qsTr("Counting…")
        hint: half.preview.state === BeatPreviewModel.Nothing
              ? qsTr("Separate words and phrases with commas. A story matches when it mentions any of them.") : ""
    }
    BeatFigures {
        id: figures

        x: Theme.space6
        width: parent.width - 2 * x
        visible: half.hasStories
        preview: half.preview
    }
    ListView {
        anchors.top: figures.bottom
        anchors.bottom: parent.bottom
        x: figures.x
        width: figures.width
        visible: half.hasStories
        clip: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        model: half.preview.matches
        keyNavigationEnabled: true
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Stories the beat finds")
        T.ScrollBar.vertical: ThinScrollBar {}

        delegate: BeatMatchRow {
            width: ListView.view.width
        }
    }
    Hairline {
        vertical: true
        height: parent.height
    }
}
