import QtQuick
import TarnwickBrell.Models

/// The content of a panel, by its kind. Loaded by name: a bound component can't be loaded in
/// Qt 6.4.
Item {
    id: body

    required property PanelContent content

    readonly property bool isTracker: {
        switch (content.kind) {
        case PanelContent.Countdown:
        case PanelContent.Stock:
        case PanelContent.Software:
        case PanelContent.Status:
        case PanelContent.Suppliers:
        case PanelContent.Backend:
        case PanelContent.Records:
        case PanelContent.Releases:
        case PanelContent.SignedBuilds:
        case PanelContent.TopFree:
        case PanelContent.TopPaid:
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
