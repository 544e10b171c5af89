import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A panel: its card, its state, its content. Stale content stays below the banner that says so.
PanelCard {
    id: panel

    required property PanelModel content
    /// Whether an empty panel offers to edit its words.
    property bool canEdit: false

    signal editRequested

    readonly property bool hasContent: content.state === PanelModel.Ready || content.state === PanelModel.Stale
    readonly property bool hasFailed: content.state === PanelModel.Stale || content.state === PanelModel.Failed

    fact: content.fact
    // Lists run to the lower edge and are clipped there; fixed contents keep a margin.
    flush: content.isList && hasContent

    FailureBanner {
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
        visible: panel.content.state === PanelModel.Loading
        figures: panel.content.hasFigures
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width
        visible: panel.content.state === PanelModel.Empty
        symbol: panel.symbol
        text: panel.content.message
        hint: panel.content.hint
        action: panel.canEdit ? qsTr("Edit words") : ""
        onActed: panel.editRequested()
    }
}
