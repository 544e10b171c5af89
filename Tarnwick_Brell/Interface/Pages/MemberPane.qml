pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The chosen piece of evidence of a project, and what the whole of it comes from.
PagePane {
    id: pane

    required property ProjectPageModel content
    readonly property NoteEditor editor: content.editor
    readonly property bool hasChosen: content.chosenTitle !== ""

    function focusText() {
        text.focusText();
    }

    lead: DeskButton {
        visible: pane.hasChosen
        symbol: "arrow.right"
        text: qsTr("Open")
        key: qsTr("Enter")
        onClicked: pane.content.openRow(pane.content.row)
    }
    tools: [
        IconButton {
            visible: pane.hasChosen
            symbol: "checkmark.circle"
            text: qsTr("Mark as checked, or as to check")
            key: qsTr("d")
            onClicked: pane.content.toggleDone(pane.content.row)
        },
        IconButton {
            visible: pane.hasChosen
            symbol: "trash"
            text: qsTr("Take out of this project")
            key: qsTr("Delete")
            onClicked: pane.content.removeRow(pane.content.row)
        }
    ]

    Flickable {
        anchors.fill: parent
        contentHeight: column.height + 2 * Theme.space5
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ThinScrollBar {}

        Column {
            id: column

            x: Theme.gridPadding
            y: Theme.space5
            width: parent.width - 2 * x
            spacing: Theme.space4

            Column {
                width: parent.width
                visible: pane.hasChosen && !pane.editor.isOpen
                spacing: Theme.space1

                DeskText {
                    width: parent.width
                    type: DeskText.BaseStrong
                    lines: 4
                    text: pane.content.chosenTitle
                }
                DeskText {
                    width: parent.width
                    type: DeskText.Secondary
                    color: Theme.text3
                    lines: 2
                    text: pane.content.chosenFact
                }
                DeskText {
                    width: parent.width
                    visible: text
                    lines: 400
                    text: pane.content.chosenText
                }
                DeskText {
                    width: parent.width
                    visible: text
                    type: DeskText.Meta
                    color: Theme.text3
                    lines: 3
                    text: pane.content.textFact
                }
            }
            PaneField {
                width: parent.width
                visible: pane.editor.isOpen
                title: qsTr("Note")
                fact: pane.editor.fact

                NoteField {
                    id: text

                    width: parent.width
                    grows: true
                    leastLines: 8
                    label: qsTr("Text of the note")
                    placeholder: qsTr("Markdown: # heading, **strong**, - item, > quote")
                    value: pane.editor.text
                    onEdited: text => pane.editor.text = text
                    onEscaped: pane.backWanted()
                }
                LinkText {
                    visible: pane.editor.versions.length > 0
                    text: qsTr("Earlier texts (%1)").arg(pane.editor.versions.length)
                    onClicked: versions.popup(this, 0, height)
                }
            }
            PaneField {
                width: parent.width
                visible: pane.content.outlets.length > 0
                title: qsTr("Who is in it")

                Flow {
                    width: parent.width
                    spacing: Theme.space2

                    Repeater {
                        model: pane.content.outlets

                        Badge {
                            required property string modelData

                            text: modelData
                        }
                    }
                }
            }
            PaneField {
                width: parent.width
                visible: pane.content.counts !== ""
                title: qsTr("Evidence pack")

                DeskText {
                    width: parent.width
                    type: DeskText.Secondary
                    color: Theme.text3
                    lines: 4
                    text: qsTr("A folder with citations, kept texts with their hashes, headline histories and what this computer saw first.")
                }
                Flow {
                    width: parent.width
                    spacing: Theme.space2

                    DeskButton {
                        look: DeskButton.Primary
                        symbol: "square.and.arrow.up"
                        text: qsTr("Export evidence")
                        onClicked: pane.content.exportEvidence()
                    }
                    DeskButton {
                        symbol: "doc.on.doc"
                        text: qsTr("Copy as Markdown")
                        key: qsTr("Shift E")
                        onClicked: pane.content.copyMarkdown()
                    }
                }
            }
        }
    }
    VersionsMenu {
        id: versions

        editor: pane.editor
    }
}
