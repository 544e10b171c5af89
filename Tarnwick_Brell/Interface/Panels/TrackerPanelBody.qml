import QtQuick
import TarnwickBrell.Models

/// The content of a panel that shows trackers.
Item {
    required property PanelContent content
}
