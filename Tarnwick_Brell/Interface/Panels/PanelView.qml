import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A panel: its card, its state, its content.
PanelCard {
    id: panel

    required property PanelContent content

    fact: content.fact

    PanelBody {
        anchors.fill: parent
        content: panel.content
    }
}
