import QtQuick
import TarnwickBrell.Models

/// The content of a panel that shows stories. Loaded by name: a bound component can't be
/// loaded in Qt 6.4, and panels want their own kinds of content.
Item {
    id: body

    required property PanelModel content

    readonly property string file: {
        switch (content.kind) {
        case PanelModel.Stream:
        case PanelModel.Apple:
            return "StreamPanel.qml";
        case PanelModel.Brief:
            return "BriefPanel.qml";
        case PanelModel.TopStories:
            return "TopStoriesPanel.qml";
        case PanelModel.Claims:
            return "ClaimsPanel.qml";
        case PanelModel.Coverage:
            return "CoveragePanel.qml";
        case PanelModel.Scoops:
            return "ScoopsPanel.qml";
        default:
            return "";
        }
    }
    readonly property string name: {
        switch (content.kind) {
        case PanelModel.Brief:
            return qsTr("Brief");
        case PanelModel.TopStories:
            return qsTr("Top stories");
        case PanelModel.Claims:
            return qsTr("Claims");
        case PanelModel.Coverage:
            return qsTr("Outlets");
        case PanelModel.Scoops:
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
