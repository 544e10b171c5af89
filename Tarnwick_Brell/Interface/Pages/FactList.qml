pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// A few lines under a label: a day or a number, a sentence, a word at the right.
Column {
    id: list

    required property string title
    required property var facts
    property string nothing
    property bool canChoose: false
    readonly property alias count: lines.count

    signal chosen(row: int)

    SectionLabel {
        width: parent.width
        start: 0
        end: 0
        text: list.title
    }
    Repeater {
        id: lines

        model: list.facts

        PlainButton {
            id: line

            required property string when
            required property string note
            required property int index
            required text

            width: list.width
            implicitHeight: Theme.tableRow
            enabled: list.canChoose
            opacity: 1
            focusPolicy: list.canChoose ? Qt.TabFocus : Qt.NoFocus
            Accessible.name: when + ", " + text + (note ? ", " + note : "")
            Accessible.role: list.canChoose ? Accessible.Button : Accessible.StaticText
            onClicked: list.chosen(index)

            background: Rectangle {
                color: line.down ? Theme.press : line.hovered && line.enabled ? Theme.hover : "transparent"

                Hairline {
                    anchors.bottom: parent.bottom
                    width: parent.width
                }
            }
            contentItem: Item {
                DeskText {
                    id: when
                    width: list.canChoose ? PageSizes.rankScaleColumn : PageSizes.factDayColumn
                    anchors.verticalCenter: parent.verticalCenter
                    type: list.canChoose ? DeskText.SecondaryStrong : DeskText.Secondary
                    color: list.canChoose ? Theme.text1 : Theme.text3
                    text: line.when
                    Accessible.ignored: true
                }
                DeskText {
                    anchors.left: when.right
                    anchors.right: note.left
                    anchors.rightMargin: Theme.space2
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.Secondary
                    text: line.text
                    Accessible.ignored: true
                }
                DeskText {
                    id: note
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.Secondary
                    color: Theme.text3
                    text: line.note
                    Accessible.ignored: true
                }
            }
            FocusRing {
                control: line
                inside: true
            }
        }
    }
    DeskText {
        width: parent.width
        visible: lines.count === 0 && text
        type: DeskText.Secondary
        lines: 2
        color: Theme.text3
        text: list.nothing
    }
}
