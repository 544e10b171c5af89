import QtQuick
import TarnwickBrell.Controls

/// A row of a list in a sheet that can be picked: a tick, a name and a quiet detail at the right.
TableRow {
    id: line

    required property int index
    required property string name
    required property string detail
    required property bool isChosen
    property bool canTick: true
    property int indent: 0
    property bool isHeading: false

    start: 0
    end: 0
    ground: Theme.raised
    spokenText: detail ? name + ", " + detail : name
    Accessible.checkable: canTick
    Accessible.checked: isChosen

    contentItem: Item {
        Rectangle {
            id: box

            x: Theme.space2 + line.indent
            anchors.verticalCenter: parent.verticalCenter
            visible: line.canTick
            width: visible ? Theme.tickBox : 0
            height: Theme.tickBox
            radius: Theme.radiusBadge
            color: line.isChosen ? Theme.accent : Theme.surface
            border.width: line.isChosen ? 0 : Theme.line
            border.color: Theme.edge

            Symbol {
                anchors.centerIn: parent
                visible: line.isChosen
                name: "checkmark"
                size: Theme.iconInMeta
                color: Theme.textOnAccent
            }
        }
        DeskText {
            id: label

            anchors.left: box.right
            anchors.leftMargin: line.canTick ? Theme.space2 : 0
            width: Math.min(implicitWidth, (parent.width - x) * Theme.sheetFormShare)
            anchors.verticalCenter: parent.verticalCenter
            type: line.isHeading ? DeskText.SecondaryStrong : DeskText.SecondaryMedium
            text: line.name
            Accessible.ignored: true
        }
        DeskText {
            anchors.left: label.right
            anchors.leftMargin: Theme.space3
            anchors.right: parent.right
            anchors.rightMargin: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            horizontalAlignment: Text.AlignRight
            type: DeskText.Meta
            elide: Text.ElideMiddle
            color: Theme.text3
            text: line.detail
            Accessible.ignored: true
        }
    }
}
