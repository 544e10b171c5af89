pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What is known of the selected source, and its last stories.
PagePane {
    id: pane

    required property SourcesPageModel content

    title: nameField.visible ? "" : content.detail.name
    tools: [
        IconButton {
            symbol: "arrow.clockwise"
            text: qsTr("Fetch now")
            onClicked: pane.content.perform(DeskAction.FetchSource)
        },
        IconButton {
            symbol: "doc.on.doc"
            text: qsTr("Copy the report")
            onClicked: pane.content.perform(DeskAction.CopyRow)
        },
        IconButton {
            visible: pane.content.detail.isOwn
            symbol: "pencil"
            text: qsTr("Rename")
            onClicked: pane.content.perform(DeskAction.RenameSource)
        },
        IconButton {
            visible: pane.content.detail.isOwn
            symbol: "trash"
            text: qsTr("Remove")
            onClicked: pane.content.perform(DeskAction.RemoveSource)
        }
    ]
    lead: DeskField {
        id: nameField

        visible: pane.content.isRenaming
        width: visible ? Theme.searchLeast : 0
        label: qsTr("Name")
        outlined: true
        clearsOnEscape: false
        onVisibleChanged: if (visible) {
            text = pane.content.detail.name;
            forceActiveFocus();
            selectAll();
        }
        onAccepted: pane.content.rename(text)
        Keys.onEscapePressed: pane.content.endRenaming()
    }

    Column {
        id: facts

        x: Theme.gridPadding
        y: Theme.space3
        width: parent.width - 2 * x
        spacing: Theme.space1

        DeskText {
            width: parent.width
            lines: 6
            type: DeskText.SecondaryMedium
            color: pane.content.detail.isFailing ? Theme.red : Theme.text1
            text: pane.content.detail.stateText
        }
        Repeater {
            model: pane.content.detail.facts

            DeskText {
                required property string modelData

                width: facts.width
                lines: 2
                wrapMode: Text.WrapAnywhere
                type: DeskText.Secondary
                color: Theme.text2
                text: modelData
            }
        }
        Row {
            spacing: Theme.space3

            LinkText {
                visible: pane.content.detail.siteLink !== ""
                text: qsTr("Open site")
                onClicked: pane.content.openLink(pane.content.detail.siteLink)
            }
            LinkText {
                visible: pane.content.detail.feedLink !== ""
                text: qsTr("Open feed")
                onClicked: pane.content.openLink(pane.content.detail.feedLink)
            }
        }
    }
    SectionLabel {
        id: label

        anchors.top: facts.bottom
        anchors.topMargin: Theme.space2
        width: parent.width
        text: qsTr("Last stories")
    }
    TableList {
        id: stories

        anchors.top: label.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        label: qsTr("Last stories")
        model: pane.content.lastStories
        onOpened: row => (itemAtIndex(row) as TableRow)?.opened()

        delegate: TableRow {
            id: story

            required property int index
            required property string id
            required property string title
            required property string age
            required property bool isRead

            width: stories.width
            spokenText: title + ", " + age
            isCurrent: ListView.isCurrentItem && stories.activeFocus
            listFocused: stories.activeFocus
            onChosen: pane.content.openStory(id)
            onOpened: pane.content.openStory(id)
            contentItem: Item {
                DeskText {
                    x: Theme.gridPadding
                    width: age.x - x - Theme.space2
                    anchors.verticalCenter: parent.verticalCenter
                    type: story.isRead ? DeskText.Secondary : DeskText.SecondaryStrong
                    color: story.isRead ? Theme.text2 : Theme.text1
                    text: story.title
                    Accessible.ignored: true
                }
                DeskText {
                    id: age

                    anchors.right: parent.right
                    anchors.rightMargin: Theme.gridPadding
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.Meta
                    color: Theme.text3
                    text: story.age
                    Accessible.ignored: true
                }
            }
        }
    }
    DeskText {
        anchors.top: label.bottom
        x: Theme.gridPadding
        width: parent.width - 2 * x
        visible: stories.count === 0
        type: DeskText.Secondary
        color: Theme.text3
        text: qsTr("The library has no story of it.")
    }
}
