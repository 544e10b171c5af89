pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Models

/// The content of a panel that shows trackers.
Item {
    id: body

    required property PanelContent content
    /// For the panels, each of which takes its own kind of content: the compiler of 6.4 can't
    /// translate a cast here.
    readonly property var held: content

    Loader {
        anchors.fill: parent
        sourceComponent: {
            switch (body.content.kind) {
            case PanelContent.Countdown:
                return countdown;
            case PanelContent.Stock:
                return stock;
            case PanelContent.Software:
                return software;
            case PanelContent.Status:
                return status;
            case PanelContent.Suppliers:
                return suppliers;
            case PanelContent.Releases:
                return releases;
            default:
                return null;
            }
        }
    }

    Component {
        id: countdown

        CountdownPanel {
            content: body.held
        }
    }
    Component {
        id: stock

        StockPanel {
            content: body.held
        }
    }
    Component {
        id: software

        SoftwarePanel {
            content: body.held
        }
    }
    Component {
        id: status

        StatusPanel {
            content: body.held
        }
    }
    Component {
        id: suppliers

        SuppliersPanel {
            content: body.held
        }
    }
    Component {
        id: releases

        ReleasesPanel {
            content: body.held
        }
    }
}
