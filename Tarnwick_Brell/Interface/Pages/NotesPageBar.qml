import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

KeptPageBar {
    id: bar

    fieldHint: qsTr("Search notes")
    buttons: DeskButton {
        symbol: "plus"
        text: qsTr("New note")
        onClicked: (bar.content as NotesPageModel).addNote()
    }
}
