import QtQuick
import QtQuick.Templates as T

/// A row of a page's table. The selected row is filled from edge to edge and has a bar at its
/// start; the hairline begins where the text does. The columns go into `contentItem`.
T.ItemDelegate {
    id: row

    required property string spokenText

    /// The list has the keyboard's focus.
    property bool listFocused: false
    property bool isCurrent: false
    property int start: Theme.gridPadding
    property int end: Theme.gridPadding
    property color ground: Theme.surface
    property bool hasLine: true

    signal chosen
    signal opened

    implicitHeight: Theme.tableRow
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    onClicked: chosen()
    onDoubleClicked: opened()
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText
    Accessible.selected: isCurrent
    Accessible.onPressAction: chosen()

    background: Rectangle {
        color: row.isCurrent ? (row.listFocused ? Theme.selected : Theme.selectedIdle)
                             : row.down ? Theme.press : row.hovered ? Theme.hover : row.ground

        Rectangle {
            width: Theme.selectionBar
            height: parent.height
            visible: row.isCurrent
            color: row.listFocused ? Theme.accent : Theme.edge
        }
        Hairline {
            anchors.bottom: parent.bottom
            visible: row.hasLine
            x: row.start
            width: parent.width - x - row.end
        }
    }
}
