pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// How the fetches of the open source went, and what can be done with it.
Column {
    id: facts

    required property SourcesPageModel content

    spacing: Theme.space1

    SectionLabel {
        width: parent.width
        start: 0
        end: 0
        text: qsTr("The last 7 days")
        detail: facts.content.detail.triesText
    }
    TryCells {
        width: parent.width
        spans: facts.content.detail.spans
        texts: facts.content.detail.spanTexts
    }
    Item {
        width: parent.width
        height: Theme.space1
    }
    Repeater {
        // The last few.
        model: facts.content.failures

        Row {
            id: failure

            required property string time
            required property string reason

            width: facts.width

            DeskText {
                width: Theme.sourceFailureTime
                type: DeskText.Secondary
                color: Theme.text3
                text: failure.time
            }
            DeskText {
                width: parent.width - Theme.sourceFailureTime
                lines: 3
                type: DeskText.Secondary
                color: Theme.text2
                text: failure.reason
            }
        }
    }
    Repeater {
        model: facts.content.detail.facts

        DeskText {
            required property string modelData

            width: facts.width
            lines: 2
            wrapMode: Text.WrapAnywhere
            type: DeskText.Secondary
            color: Theme.text3
            text: modelData
        }
    }
    Row {
        spacing: Theme.space3

        LinkText {
            visible: facts.content.detail.siteLink !== ""
            text: qsTr("Open site")
            onClicked: facts.content.openLink(facts.content.detail.siteLink)
        }
        LinkText {
            visible: facts.content.detail.feedLink !== ""
            text: qsTr("Open feed")
            onClicked: facts.content.openLink(facts.content.detail.feedLink)
        }
    }
    DeskField {
        id: nameField

        visible: facts.content.isRenaming
        width: parent.width
        label: qsTr("Name")
        outlined: true
        onVisibleChanged: if (visible) {
            text = facts.content.detail.name;
            forceActiveFocus();
            selectAll();
        }
        onAccepted: facts.content.rename(text)
        Keys.onEscapePressed: facts.content.endRenaming()
    }
    Flow {
        width: parent.width
        spacing: Theme.space2
        visible: !facts.content.isRenaming

        DeskButton {
            symbol: "arrow.clockwise"
            text: qsTr("Fetch now")
            onClicked: facts.content.performOnOpen(DeskAction.FetchSource)
        }
        DeskButton {
            symbol: "doc.on.doc"
            text: qsTr("Copy the report")
            onClicked: facts.content.performOnOpen(DeskAction.CopyRow)
        }
        DeskButton {
            visible: facts.content.detail.isOwn
            text: qsTr("Rename")
            onClicked: facts.content.performOnOpen(DeskAction.RenameSource)
        }
        DeskButton {
            visible: facts.content.detail.isOwn
            look: DeskButton.Quiet
            text: qsTr("Remove")
            onClicked: facts.content.performOnOpen(DeskAction.RemoveSource)
        }
    }
}
