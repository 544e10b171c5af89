import QtQuick
import TarnwickBrell.Models

/// The content of a panel, by its kind. Loaded by name: a bound component can't be loaded in
/// Qt 6.4.
Item {
    id: body

    required property PanelModel content

    readonly property bool isTracker: {
        switch (content.kind) {
        case PanelModel.Countdown:
        case PanelModel.Stock:
        case PanelModel.Software:
        case PanelModel.Status:
        case PanelModel.Suppliers:
        case PanelModel.Backend:
        case PanelModel.Records:
        case PanelModel.Releases:
        case PanelModel.SignedBuilds:
        case PanelModel.TopFree:
        case PanelModel.TopPaid:
            return true;
        default:
            return false;
        }
    }

    Loader {
        id: loader
        anchors.fill: parent
    }
    Component.onCompleted: loader.setSource(isTracker ? "TrackerPanelBody.qml" : "StoryPanelBody.qml", {
        content: content
    })
}
