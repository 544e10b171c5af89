import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Shows the sheet that the window has open. Loaded by name, because Qt 6.4 can't load a bound
/// component.
Loader {
    id: host

    required property WindowModel desk

    function show() {
        if (desk.sheet)
            setSource(desk.sheet.file, { content: desk.sheet });
        else
            source = "";
    }

    onLoaded: (item as Sheet).open()

    Connections {
        target: host.desk

        function onSheetChanged() {
            host.show();
        }
    }
    Connections {
        target: host.item

        function onClosed() {
            host.desk.closeSheet();
        }
    }
}
