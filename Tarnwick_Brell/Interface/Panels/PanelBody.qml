import QtQuick
import TarnwickBrell.Models

/// The content of a panel, shown by the file that its model names. Loaded by name: a bound component
/// can't be loaded in Qt 6.4.
Loader {
    id: body

    required property PanelModel content

    Component.onCompleted: {
        if (content.file)
            setSource(content.file, { content: content });
    }
}
