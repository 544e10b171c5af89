import QtQuick
import TarnwickBrell.Controls

/// One result of the palette, with the title of its group above the first.
Item {
    id: line

    required property int index
    required property string heading
    required property string symbol
    required property var parts
    required property string note
    required property list<string> keyCaps
    required property string spokenText
    property bool isSelected: false

    signal pointed
    signal chosen

    height: body.y + body.height
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.onPressAction: line.chosen()

    DeskText {
        x: Theme.space5
        anchors.bottom: body.top
        anchors.bottomMargin: Theme.space1
        type: DeskText.MetaStrong
        color: Theme.text3
        text: line.heading
        visible: line.heading !== ""
        Accessible.role: Accessible.Heading
    }
    Rectangle {
        id: body

        x: Theme.space2
        y: line.heading === "" ? 0 : Theme.paletteRow
        width: parent.width - 2 * x
        height: Theme.paletteRow
        radius: Theme.radiusControl
        color: line.isSelected ? Theme.selected : "transparent"

        Symbol {
            x: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            name: line.symbol
            color: line.isSelected ? Theme.accentText : Theme.text2
        }
        MatchedText {
            anchors.left: parent.left
            anchors.right: end.left
            anchors.leftMargin: Theme.space3 + Theme.icon + Theme.space3
            anchors.rightMargin: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            parts: line.parts
        }
        Row {
            id: end

            anchors.right: parent.right
            anchors.rightMargin: Theme.space3
            anchors.verticalCenter: parent.verticalCenter

            DeskText {
                width: Math.min(implicitWidth, line.width / 2)
                type: DeskText.Meta
                color: Theme.text3
                text: line.note
                visible: line.note !== ""
                Accessible.ignored: true
            }
            KeyCaps {
                anchors.verticalCenter: parent.verticalCenter
                keys: line.keyCaps
            }
        }
        HoverHandler {
            // Ignores the list moving below a pointer at rest.
            onPointChanged: if (hovered) line.pointed()
        }
        TapHandler {
            onTapped: line.chosen()
        }
    }
}
