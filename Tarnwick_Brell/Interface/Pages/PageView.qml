import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The page that the window is at. Stale content stays below the banner that says so.
FocusScope {
    id: view

    required property PageModel page

    readonly property bool hasContent: page !== null && (page.state === PanelModel.Ready || page.state === PanelModel.Stale)
    readonly property bool hasFailed: page !== null && (page.state === PanelModel.Stale || page.state === PanelModel.Failed)

    function step(by: int) {
        (body.item as PageBody)?.step(by);
    }
    function switchPane() {
        (body.item as PageBody)?.switchPane();
    }

    onPageChanged: {
        if (page)
            body.setSource(page.file, { content: page });
        else
            body.source = "";
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.canvas
    }
    FailureBanner {
        id: failure

        x: Theme.gridPadding
        y: visible ? Theme.gridPadding : 0
        width: parent.width - 2 * Theme.gridPadding
        height: visible ? implicitHeight : 0
        visible: view.hasFailed
        text: view.page ? view.page.message + (view.page.hint ? " " + view.page.hint : "") : ""
        onRetried: view.page.retry()
    }
    Loader {
        id: body

        anchors.fill: parent
        anchors.topMargin: failure.y + failure.height
        // Not simply true: what was not visible does not get the active focus back when it is.
        focus: visible
        visible: view.hasContent
    }
    PanelSkeleton {
        anchors.fill: parent
        anchors.margins: Theme.gridPadding
        visible: view.page !== null && view.page.state === PanelModel.Loading
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.gridPadding
        visible: view.page !== null && view.page.state === PanelModel.Empty
        page: true
        symbol: "square.grid.2x2"
        text: view.page ? view.page.message : ""
        hint: view.page ? view.page.hint : ""
    }
}
