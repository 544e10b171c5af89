import QtQuick
import TarnwickBrell.Models

/// The content of a panel, drawn by the file that its model names. Loaded by name, because Qt 6.4
/// can't load a bound component.
Loader {
    id: body

    required property PanelModel content

    Component.onCompleted: {
        if (content.file)
            setSource(content.file, { content: content });
    }
}
