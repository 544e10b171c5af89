import QtQuick
import TarnwickBrell.Models

/// The content of a panel that shows stories. Loaded by name: a bound component can't be
/// loaded in Qt 6.4, and panels want their own kinds of content.
Item {
    id: body

    required property PanelContent content

    readonly property string file: {
        switch (content.kind) {
        case PanelContent.Stream:
        case PanelContent.Apple:
            return "StreamPanel.qml";
        case PanelContent.Brief:
            return "BriefPanel.qml";
        case PanelContent.TopStories:
            return "TopStoriesPanel.qml";
        case PanelContent.Claims:
            return "ClaimsPanel.qml";
        case PanelContent.Coverage:
            return "CoveragePanel.qml";
        case PanelContent.Scoops:
            return "ScoopsPanel.qml";
        default:
            return "";
        }
    }
    readonly property string name: {
        switch (content.kind) {
        case PanelContent.Brief:
            return qsTr("Brief");
        case PanelContent.TopStories:
            return qsTr("Top stories");
        case PanelContent.Claims:
            return qsTr("Claims");
        case PanelContent.Coverage:
            return qsTr("Outlets");
        case PanelContent.Scoops:
            return qsTr("Scoops");
        default:
            return qsTr("Stories");
        }
    }

    Loader {
        id: loader
        anchors.fill: parent
    }
    Component.onCompleted: {
        if (file)
            loader.setSource(file, {
                name: name,
                content: content
            });
    }
}
