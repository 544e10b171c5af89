import QtQuick
import TarnwickBrell.Models

/// The contents of the toolbar for the page that the window is at; empty for a page without any.
FocusScope {
    id: view

    required property PageModel page
    readonly property PageBar bar: loader.item as PageBar

    signal leftForPage

    onPageChanged: {
        if (page && page.barFile)
            loader.setSource(page.barFile, { content: page });
        else
            loader.source = "";
    }

    Loader {
        id: loader

        anchors.fill: parent
        focus: true
    }
    Connections {
        target: view.bar

        function onLeftForPage() {
            view.leftForPage();
        }
    }
}
