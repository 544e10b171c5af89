import QtQuick
import TarnwickBrell.Models

/// The content of a panel, drawn by the file that its model names. Loaded by name, because Qt 6.4
/// can't load a bound component.
Loader {
    id: body

    required property PanelModel content

    property bool isMade: false

    function load() {
        if (content && content.file)
            setSource(content.file, { content: content });
        else
            source = "";
    }

    onContentChanged: if (isMade)
        load()
    Component.onCompleted: {
        isMade = true;
        load();
    }
}
