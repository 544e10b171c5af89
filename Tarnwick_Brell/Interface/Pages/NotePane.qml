pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The chosen note: its title, its text, its earlier texts.
PagePane {
    id: pane

    required property NotesPageModel content
    readonly property NoteEditor editor: content.editor

    function focusText() {
        text.focusText();
    }

    fact: editor.isOpen ? editor.fact : ""
    tools: [
        IconButton {
            visible: pane.editor.versions.length > 0
            symbol: "clock"
            text: qsTr("Earlier texts")
            onClicked: versions.popup(this, 0, height)
        },
        IconButton {
            visible: pane.editor.isOpen
            symbol: "archivebox"
            text: qsTr("Put into a project")
            onClicked: pane.content.putIntoProject()
        },
        IconButton {
            visible: pane.editor.isOpen
            symbol: "trash"
            text: qsTr("Remove this note")
            onClicked: pane.content.removeRow(pane.content.row)
        }
    ]

    Item {
        anchors.fill: parent
        anchors.margins: Theme.gridPadding
        visible: pane.editor.isOpen

        DeskField {
            id: title

            width: parent.width
            main: true
            label: qsTr("Title of the note")
            placeholderText: qsTr("Title")
            text: pane.editor.title
            onTextEdited: pane.editor.title = text
            Keys.onReturnPressed: pane.focusText()
            Keys.onDownPressed: pane.focusText()
        }
        LinkText {
            id: about

            anchors.top: title.bottom
            anchors.topMargin: Theme.space2
            width: parent.width
            height: visible ? implicitHeight : 0
            visible: pane.content.about !== ""
            text: qsTr("On “%1”").arg(pane.content.about)
            onClicked: pane.content.openStoryOfNote()
        }
        NoteField {
            id: text

            anchors.top: about.bottom
            anchors.topMargin: Theme.space2
            anchors.bottom: parent.bottom
            width: parent.width
            label: qsTr("Text of the note")
            placeholder: qsTr("Markdown: # heading, **strong**, - item, > quote")
            value: pane.editor.text
            onEdited: text => pane.editor.text = text
            onEscaped: pane.backWanted()
        }
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.gridPadding
        visible: !pane.editor.isOpen
        symbol: "pencil"
        text: qsTr("No note is selected.")
        hint: qsTr("Enter opens the selected one.")
    }
    VersionsMenu {
        id: versions

        editor: pane.editor
    }
}
