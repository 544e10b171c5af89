import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls

/// A section of the settings.
T.ItemDelegate {
    id: row

    required property int index
    required property string title
    required property string symbol
    property bool isCurrent: false
    property bool keyboardHere: false

    implicitHeight: Theme.sidebarItem
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: title
    Accessible.selected: isCurrent

    background: Rectangle {
        radius: Theme.radiusControl
        color: row.isCurrent ? Theme.navSelected : row.hovered ? Theme.press : "transparent"
        border.width: row.keyboardHere ? Theme.focusRing : 0
        border.color: Theme.accent
    }
    contentItem: Item {
        Symbol {
            x: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            name: row.symbol
            color: row.isCurrent ? Theme.accentText : Theme.text2
        }
        DeskText {
            x: Theme.space8
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - x
            type: row.isCurrent ? DeskText.BaseMedium : DeskText.Base
            text: row.title
            Accessible.ignored: true
        }
    }
}
