import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A panel: its card, its state, its content. Content that is stale stays below the band that
/// says so.
PanelCard {
    id: panel

    required property PanelContent content
    /// An empty panel offers it where its words can be changed.
    property bool canEdit: false

    signal editRequested

    readonly property bool hasContent: content.state === PanelContent.Ready || content.state === PanelContent.Stale
    readonly property bool hasFailed: content.state === PanelContent.Stale || content.state === PanelContent.Failed
    /// Lists run to the lower edge and are cut there; fixed contents keep a distance.
    readonly property bool isList: {
        switch (content.kind) {
        case PanelContent.Countdown:
        case PanelContent.Stock:
        case PanelContent.Software:
        case PanelContent.Status:
            return false;
        default:
            return true;
        }
    }

    fact: content.fact
    flush: isList && hasContent

    FailureBand {
        id: failure
        width: parent.width
        visible: panel.hasFailed
        text: panel.content.message
        onRetried: panel.content.retry()
    }
    Row {
        id: lastGood
        anchors.top: failure.bottom
        anchors.topMargin: Theme.space3
        visible: panel.hasFailed && panel.content.hint
        spacing: Theme.badgeGap

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "clock"
            size: Theme.iconInMeta
            color: Theme.text3
        }
        DeskText {
            type: DeskText.Meta
            text: panel.content.hint
            color: Theme.text3
        }
    }
    PanelBody {
        anchors.fill: parent
        anchors.topMargin: panel.hasFailed
            ? failure.height + (lastGood.visible ? lastGood.height + Theme.space3 : 0) + Theme.space2 : 0
        visible: panel.hasContent
        content: panel.content
    }
    PanelSkeleton {
        anchors.fill: parent
        visible: panel.content.state === PanelContent.Loading
        figures: panel.content.kind === PanelContent.TopStories
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width
        visible: panel.content.state === PanelContent.Empty
        symbol: panel.symbol
        text: panel.content.message
        hint: panel.content.hint
        action: panel.canEdit ? qsTr("Edit words") : ""
        onActed: panel.editRequested()
    }
}
