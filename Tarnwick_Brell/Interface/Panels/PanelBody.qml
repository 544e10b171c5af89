pragma ComponentBehavior: Bound

import QtQuick
import TarnwickBrell.Models

/// The content of a panel, by its kind.
Item {
    id: body

    required property PanelContent content

    Loader {
        anchors.fill: parent
        sourceComponent: body.isTracker ? trackers : stories
    }

    readonly property bool isTracker: {
        switch (body.content.kind) {
        case PanelContent.Countdown:
        case PanelContent.Stock:
        case PanelContent.Software:
        case PanelContent.Status:
        case PanelContent.Suppliers:
        case PanelContent.Backend:
        case PanelContent.Records:
        case PanelContent.Releases:
            return true;
        default:
            return false;
        }
    }

    Component {
        id: stories

        StoryPanelBody {
            content: body.content
        }
    }

    Component {
        id: trackers

        TrackerPanelBody {
            content: body.content
        }
    }
}
