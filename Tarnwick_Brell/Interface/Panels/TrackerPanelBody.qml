import QtQuick
import TarnwickBrell.Models

/// The content of a panel that shows trackers. Loaded by name: a bound component can't be
/// loaded in Qt 6.4, and each panel wants its own kind of content.
Item {
    id: body

    required property PanelModel content

    readonly property string file: {
        switch (content.kind) {
        case PanelModel.Countdown:
            return "CountdownPanel.qml";
        case PanelModel.Stock:
            return "StockPanel.qml";
        case PanelModel.Software:
            return "SoftwarePanel.qml";
        case PanelModel.Status:
            return "StatusPanel.qml";
        case PanelModel.Suppliers:
            return "SuppliersPanel.qml";
        case PanelModel.Backend:
            return "BackendPanel.qml";
        case PanelModel.Records:
            return "RecordsPanel.qml";
        case PanelModel.Releases:
            return "ReleasesPanel.qml";
        case PanelModel.SignedBuilds:
            return "SignedPanel.qml";
        case PanelModel.TopFree:
        case PanelModel.TopPaid:
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
