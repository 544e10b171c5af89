import QtQuick
import TarnwickBrell.Models

/// The content of a panel that shows trackers. Loaded by name: a bound component can't be
/// loaded in Qt 6.4, and each panel wants its own kind of content.
Item {
    id: body

    required property PanelContent content

    readonly property string file: {
        switch (content.kind) {
        case PanelContent.Countdown:
            return "CountdownPanel.qml";
        case PanelContent.Stock:
            return "StockPanel.qml";
        case PanelContent.Software:
            return "SoftwarePanel.qml";
        case PanelContent.Status:
            return "StatusPanel.qml";
        case PanelContent.Suppliers:
            return "SuppliersPanel.qml";
        case PanelContent.Backend:
            return "BackendPanel.qml";
        case PanelContent.Records:
            return "RecordsPanel.qml";
        case PanelContent.Releases:
            return "ReleasesPanel.qml";
        case PanelContent.SignedBuilds:
            return "SignedPanel.qml";
        case PanelContent.TopFree:
        case PanelContent.TopPaid:
            return "ChartPanel.qml";
        default:
            return "";
        }
    }

    Loader {
        anchors.fill: parent
        Component.onCompleted: {
            if (body.file)
                setSource(body.file, { content: body.content });
        }
    }
}
