pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What the marks of the signing matrix mean.
Item {
    id: legend

    readonly property list<int> marks: [SigningCell.Signed, SigningCell.Stopped, SigningCell.NotSigned, SigningCell.NotKnown]
    readonly property list<string> words: [qsTr("Signed"), qsTr("Stopped in the last 7 days"), qsTr("Not signed"), qsTr("Not known")]

    implicitHeight: Theme.bar
    clip: true

    Hairline {
        width: parent.width
    }
    Row {
        x: Theme.gridPadding
        anchors.verticalCenter: parent.verticalCenter
        spacing: PageSizes.columnGap

        Repeater {
            model: legend.marks

            Row {
                id: entry

                required property int modelData
                required property int index

                spacing: Theme.space2

                SigningMark {
                    anchors.verticalCenter: parent.verticalCenter
                    mark: entry.modelData
                }
                DeskText {
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.Meta
                    color: Theme.text3
                    text: legend.words[entry.index]
                }
            }
        }
        DeskText {
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            color: Theme.text3
            text: qsTr("Empty: never offered")
        }
    }
}
