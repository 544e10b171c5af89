pragma ComponentBehavior: Bound

import QtQuick
import TarnwickBrell.Models

/// The content of a panel that shows stories.
Item {
    id: body

    required property PanelContent content

    Loader {
        anchors.fill: parent
        sourceComponent: {
            switch (body.content.kind) {
            case PanelContent.Stream:
            case PanelContent.Apple:
                return stream;
            case PanelContent.Brief:
                return brief;
            case PanelContent.TopStories:
                return topStories;
            case PanelContent.Claims:
                return claims;
            case PanelContent.Coverage:
                return coverage;
            case PanelContent.Scoops:
                return scoops;
            default:
                return null;
            }
        }
    }
    Component {
        id: stream

        StreamPanel {
            name: qsTr("Stories")
            content: body.content as StoryPanel
        }
    }
    Component {
        id: brief

        BriefPanel {
            name: qsTr("Brief")
            content: body.content as GatheredPanel
        }
    }
    Component {
        id: topStories

        TopStoriesPanel {
            name: qsTr("Top stories")
            content: body.content as GatheredPanel
        }
    }
    Component {
        id: claims

        ClaimsPanel {
            name: qsTr("Claims")
            content: body.content as GatheredPanel
        }
    }
    Component {
        id: coverage

        CoveragePanel {
            name: qsTr("Outlets")
            content: body.content as GatheredPanel
        }
    }
    Component {
        id: scoops

        ScoopsPanel {
            name: qsTr("Scoops")
            content: body.content as GatheredPanel
        }
    }
}
