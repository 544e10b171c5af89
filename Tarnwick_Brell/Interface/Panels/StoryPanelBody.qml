import QtQuick
import TarnwickBrell.Models

/// The content of a panel that shows stories.
Item {
    required property PanelContent content
}
