pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The chosen clip: what it quotes, from where, its citation, and what the user says of it.
PagePane {
    id: pane

    required property ClipsPageModel content

    lead: DeskButton {
        visible: pane.content.hasClip
        symbol: "arrow.right"
        text: qsTr("Open story")
        key: qsTr("Enter")
        onClicked: pane.content.openRow(pane.content.row)
    }
    tools: [
        IconButton {
            visible: pane.content.hasClip
            symbol: "quote.opening"
            text: qsTr("Copy with citation")
            key: qsTr("y")
            onClicked: pane.content.copy(0)
        },
        IconButton {
            visible: pane.content.hasClip
            symbol: "archivebox"
            text: qsTr("Put into a project")
            key: qsTr("Shift P")
            onClicked: pane.content.putIntoProject()
        },
        IconButton {
            visible: pane.content.hasClip
            symbol: "trash"
            text: qsTr("Remove this clip")
            key: qsTr("Delete")
            onClicked: pane.content.removeRow(pane.content.row)
        }
    ]

    Flickable {
        anchors.fill: parent
        visible: pane.content.hasClip
        contentHeight: column.height + 2 * Theme.space5
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ThinScrollBar {}

        Column {
            id: column

            x: Theme.gridPadding
            y: Theme.space5
            width: parent.width - 2 * x
            spacing: Theme.space4

            Item {
                width: parent.width
                height: quote.height

                Rectangle {
                    width: Theme.selectionBar
                    height: parent.height
                    radius: Theme.radiusBar
                    color: Theme.accentLine
                }
                DeskText {
                    id: quote

                    x: Theme.space4
                    width: parent.width - x
                    type: DeskText.Reader
                    lines: 2000
                    text: pane.content.quote
                }
            }
            Column {
                width: parent.width
                spacing: Theme.step2

                DeskText {
                    width: parent.width
                    type: DeskText.BaseStrong
                    lines: 3
                    text: pane.content.headline
                }
                DeskText {
                    width: parent.width
                    type: DeskText.Secondary
                    color: Theme.text3
                    lines: 2
                    text: pane.content.source
                }
            }
            PaneField {
                width: parent.width
                title: qsTr("Note")

                NoteField {
                    width: parent.width
                    grows: true
                    leastLines: 3
                    label: qsTr("Note on this clip")
                    placeholder: qsTr("What you say of it")
                    value: pane.content.note
                    onEdited: text => pane.content.note = text
                    onEscaped: pane.backWanted()
                }
            }
            PaneField {
                width: parent.width
                title: qsTr("Tags")

                DeskField {
                    width: parent.width
                    outlined: true
                    label: qsTr("Tags of this clip")
                    placeholderText: qsTr("Words with commas between them")
                    text: pane.content.tags
                    onEditingFinished: pane.content.setTags(text)
                }
            }
            PaneField {
                width: parent.width
                title: qsTr("Citation")

                DeskText {
                    width: parent.width
                    type: DeskText.Secondary
                    lines: 6
                    text: pane.content.citation
                }
                Flow {
                    width: parent.width
                    spacing: Theme.space2

                    Repeater {
                        model: pane.content.styles

                        DeskButton {
                            required property string modelData
                            required property int index

                            symbol: "doc.on.doc"
                            text: modelData
                            tip: qsTr("Copy the quote with its citation as %1").arg(modelData)
                            onClicked: pane.content.copy(index)
                        }
                    }
                }
            }
        }
    }
}
