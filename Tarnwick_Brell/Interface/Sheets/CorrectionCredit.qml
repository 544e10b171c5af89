pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A credit that is wrong, and the right one.
Column {
    id: credit

    required property CorrectionSheetModel content
    readonly property bool hasCredits: content.credits.length > 0

    spacing: Theme.space2

    DeskText {
        width: parent.width
        visible: !credit.hasCredits
        type: DeskText.Secondary
        color: Theme.text3
        text: qsTr("The desk has read no credit in this story.")
    }
    FieldLabel {
        visible: credit.hasCredits
        text: qsTr("The wrong credit")
    }
    DeskButton {
        id: chosen

        visible: credit.hasCredits
        symbol: "chevron.down"
        text: credit.hasCredits ? credit.content.credits[credit.content.credit] : ""
        onClicked: names.popup(chosen, 0, chosen.height + Theme.space1)

        DeskMenu {
            id: names

            Repeater {
                model: credit.content.credits

                DeskMenuItem {
                    required property string modelData
                    required property int index

                    text: modelData
                    checkable: true
                    checked: index === credit.content.credit
                    onTriggered: credit.content.credit = index
                }
            }
        }
    }
    FieldLabel {
        visible: credit.hasCredits
        text: qsTr("The right one; nobody when it stays empty")
    }
    DeskField {
        width: parent.width
        visible: credit.hasCredits
        outlined: true
        label: qsTr("The right one; nobody when it stays empty")
        text: credit.content.by
        onTextEdited: credit.content.by = text
        Keys.onReturnPressed: credit.content.correctCredit()
    }
    DeskButton {
        visible: credit.hasCredits
        look: DeskButton.Primary
        text: qsTr("Correct the credit")
        key: qsTr("Enter")
        onClicked: credit.content.correctCredit()
    }
}
