import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The notes, and the chosen one to be written.
PageBody {
    id: page

    required property NotesPageModel content

    /// The text is to have the focus as soon as it can.
    property bool wantsText: content.isDraft

    function step(by: int) {
        list.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    onVisibleChanged: if (wantsText)
        typing.restart()

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        mainLeast: PageSizes.caseList
        paneWidth: Math.max(PageSizes.docketLeast, Math.round(width * PageSizes.keptPaneShare))
        pane: note

        KeptList {
            id: list

            anchors.fill: parent
            focus: true
            content: page.content
            label: qsTr("Notes")
            onOpened: row => page.content.openRow(row)
        }
    }
    NotePane {
        id: note

        content: page.content
    }
    Connections {
        target: page.content

        function onTypingWanted() {
            page.wantsText = true;
            typing.restart();
        }
        function onChanged() {
            if (page.wantsText)
                typing.restart();
        }
    }
    // The text takes the focus once the page is shown and the note has come.
    Timer {
        id: typing

        interval: Theme.nextTurn
        onTriggered: {
            if (!page.visible || !page.content.editor.isOpen)
                return;
            page.wantsText = false;
            split.openPane();
            note.focusText();
        }
    }
}
