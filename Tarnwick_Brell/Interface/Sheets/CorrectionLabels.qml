pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The right label of a story, and its kind.
Column {
    id: labels

    required property CorrectionSheetModel content

    spacing: Theme.space2

    DeskText {
        width: parent.width
        type: DeskText.Secondary
        color: Theme.text3
        text: labels.content.rulesText
    }
    Column {
        width: parent.width

        Repeater {
            model: labels.content.sourcings

            CorrectionLabelRow {
                required property string modelData
                required property int index

                width: labels.width
                label: modelData
                sourcing: index
                isCurrent: index === labels.content.sourcing
                onClicked: labels.content.chooseSourcing(index)
            }
        }
    }
    DeskButton {
        id: kindButton

        text: qsTr("Kind: %1").arg(labels.content.kinds[labels.content.kind])
        symbol: "chevron.down"
        onClicked: kinds.popup(kindButton, 0, kindButton.height + Theme.space1)

        DeskMenu {
            id: kinds

            Repeater {
                model: labels.content.kinds

                DeskMenuItem {
                    required property string modelData
                    required property int index

                    text: modelData
                    checkable: true
                    checked: index === labels.content.kind
                    onTriggered: labels.content.chooseKind(index)
                }
            }
        }
    }
}
