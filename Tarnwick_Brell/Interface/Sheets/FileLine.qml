import QtQuick
import TarnwickBrell.Controls

/// The path of a file, typed or chosen with the desktop's dialog.
FocusScope {
    id: line

    property alias path: field.text
    property alias label: field.label
    property alias hint: field.placeholderText

    signal edited(text: string)
    signal accepted(text: string)
    signal chooseWanted

    implicitHeight: field.height

    DeskField {
        id: field

        x: Theme.focusRing
        width: choose.x - x - Theme.space2
        focus: true
        outlined: true
        symbol: "doc.text"
        onTextEdited: line.edited(text)
        onAccepted: line.accepted(text)
    }
    DeskButton {
        id: choose

        anchors.right: parent.right
        inSheet: true
        text: qsTr("Choose…")
        onClicked: line.chooseWanted()
    }
}
