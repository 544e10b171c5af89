import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// One of the labels that a story can have, with its key.
PlainButton {
    id: row

    required property string label
    required property int sourcing
    required property bool isCurrent

    implicitHeight: Theme.tableRow
    text: label
    key: "" + (sourcing + 1)
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: isCurrent

    background: Rectangle {
        radius: Theme.radiusBadge
        color: row.hovered || row.visualFocus ? Theme.hover : "transparent"
    }
    contentItem: Item {
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            x: Theme.space2
            visible: row.isCurrent
            name: "checkmark"
            size: Theme.iconInMeta
            color: Theme.text1
        }
        SourcingBadge {
            x: Theme.space8
            anchors.verticalCenter: parent.verticalCenter
            sourcing: row.sourcing
            text: row.label
        }
        DeskText {
            x: Theme.space8
            anchors.verticalCenter: parent.verticalCenter
            visible: row.sourcing === StorySourcing.Unlabeled
            type: DeskText.Secondary
            color: Theme.text2
            text: row.label
            Accessible.ignored: true
        }
        KeyCap {
            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            text: "" + (row.sourcing + 1)
        }
    }
    FocusRing { control: row }
}
