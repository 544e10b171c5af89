import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Which outlet had the news first, with its article as the proof.
Column {
    id: first

    required property CorrectionSheetModel content

    spacing: Theme.space2

    FieldLabel {
        text: qsTr("The outlet that had it first")
    }
    DeskField {
        width: parent.width
        outlined: true
        label: qsTr("The outlet that had it first")
        text: first.content.outlet
        onTextEdited: first.content.outlet = text
        Keys.onReturnPressed: first.content.setFirst()
    }
    FieldLabel {
        text: qsTr("The address of its article, as the proof")
    }
    DeskField {
        width: parent.width
        outlined: true
        label: qsTr("The address of its article, as the proof")
        text: first.content.link
        onTextEdited: first.content.link = text
        Keys.onReturnPressed: first.content.setFirst()
    }
    DeskButton {
        look: DeskButton.Primary
        enabled: first.content.canBeFirst
        text: qsTr("It had it first")
        key: qsTr("Enter")
        onClicked: first.content.setFirst()
    }
}
