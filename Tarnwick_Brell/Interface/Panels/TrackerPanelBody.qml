pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Models

/// The content of a panel that shows trackers.
Item {
    id: body

    required property PanelContent content

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
            content: body.content as CountdownContent
        }
    }
    Component {
        id: stock

        StockPanel {
            content: body.content as StockContent
        }
    }
    Component {
        id: software

        SoftwarePanel {
            content: body.content as SoftwareContent
        }
    }
    Component {
        id: status

        StatusPanel {
            content: body.content as StatusContent
        }
    }
    Component {
        id: suppliers

        SuppliersPanel {
            content: body.content as SuppliersContent
        }
    }
    Component {
        id: releases

        ReleasesPanel {
            content: body.content as ReleasesContent
        }
    }
}
