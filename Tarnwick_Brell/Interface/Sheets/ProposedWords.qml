pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// Words to add to a field of words, each with one press. Takes no room without any.
Column {
    id: proposed

    signal chosen(word: string)

    property list<string> words

    visible: words.length > 0
    spacing: Theme.space1

    FieldLabel {
        text: qsTr("Often in these headlines")
    }
    Flow {
        width: parent.width
        spacing: Theme.space2

        Repeater {
            model: proposed.words

            DeskButton {
                required property string modelData

                width: Math.min(implicitWidth, parent ? parent.width : implicitWidth)
                symbol: "plus"
                text: modelData
                Accessible.name: qsTr("Add %1").arg(modelData)
                onClicked: proposed.chosen(modelData)
            }
        }
    }
}
