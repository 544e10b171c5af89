import QtQuick
import TarnwickBrell.Controls

/// A line of the state before and the one beside it of the state after.
TableRow {
    id: line

    required property int index
    required property string beforeNumber
    required property string before
    required property bool isGone
    required property string afterNumber
    required property string after
    required property bool isNew

    start: Theme.readerPadding
    end: Theme.readerPadding
    hasLine: false
    implicitHeight: PageSizes.codeLine

    contentItem: Item {
        StateText {
            x: line.start
            width: parent.width / 2 - x - Theme.space1
            height: parent.height
            number: line.beforeNumber
            text: line.before
            sign: line.isGone ? "−" : ""
            ink: line.isGone ? Theme.red : Theme.text2
            ground: line.isGone ? Theme.redSoft : "transparent"
        }
        StateText {
            x: parent.width / 2 + Theme.space1
            width: parent.width / 2 - line.end - Theme.space1
            height: parent.height
            number: line.afterNumber
            text: line.after
            sign: line.isNew ? "+" : ""
            ink: line.isNew ? Theme.green : Theme.text2
            ground: line.isNew ? Theme.greenSoft : "transparent"
        }
    }
}
