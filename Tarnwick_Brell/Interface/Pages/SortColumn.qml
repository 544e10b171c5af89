import QtQuick
import TarnwickBrell.Controls

/// The name of a column that sorts the table; an arrow shows the column in use and its direction.
PlainButton {
    id: column

    property bool current: false
    property bool reversed: false
    property bool measure: false

    height: Theme.tableRow
    Accessible.description: !current ? "" : reversed ? qsTr("Sorted, the other way round") : qsTr("Sorted")
    contentItem: Item {
        DeskText {
            id: words

            anchors.right: column.measure ? parent.right : undefined
            width: Math.min(implicitWidth, parent.width - (arrow.visible ? arrow.width : 0))
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            color: column.current || column.hovered ? Theme.text1 : Theme.text3
            text: column.text
            Accessible.ignored: true
        }
        Symbol {
            id: arrow

            x: column.measure ? words.x - width : words.width
            anchors.verticalCenter: parent.verticalCenter
            visible: column.current
            name: column.reversed ? "chevron.up" : "chevron.down"
            size: Theme.iconInMeta
        }
    }

    FocusRing {
        control: column
        inside: true
    }
}
