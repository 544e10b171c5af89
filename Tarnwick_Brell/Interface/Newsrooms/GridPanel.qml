pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// A panel on the grid. While the newsroom is edited its content rests and the header moves the
/// panel.
FocusScope {
    id: panel

    required property PanelModel content
    required property string title
    required property string symbol
    /// Its place and size in cells, in words.
    required property string place
    /// How far it gives way to a dragged panel, in words.
    required property string shift
    property bool editable: false
    property bool editing: false
    property bool selected: false
    property bool held: false

    signal picked
    signal menuWanted
    signal gripped(edges: int, at: point)
    signal pulled(at: point)
    signal dropped
    signal cancelled

    Accessible.ignored: !editing
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("%1, %2").arg(title).arg(place)
    Accessible.selected: selected
    Accessible.focusable: true

    Shadow {
        visible: panel.held
        caster: panel
    }
    PanelView {
        id: view

        // Not anchors: until they are set, the height would be the implicit one, which depends on it.
        width: parent.width
        height: parent.height
        title: panel.title
        symbol: panel.symbol
        content: panel.content
        fact: panel.shift !== "" ? panel.shift : content.fact
        factColor: panel.shift !== "" ? Theme.accentText : Theme.text3
        draggable: panel.editing
        hasMenu: panel.editable
        canEdit: panel.editable
        onMenuRequested: panel.menuWanted()
        onEditRequested: panel.menuWanted()
    }
    MouseArea {
        anchors.fill: parent
        anchors.topMargin: Theme.panelHeader
        visible: panel.editing
        onPressed: panel.picked()
        onWheel: wheel => wheel.accepted = false
    }
    MouseArea {
        width: parent.width - (panel.editable ? view.menuButton.width + Theme.space1 : 0)
        height: Theme.panelHeader
        visible: panel.editing
        preventStealing: true
        cursorShape: pressed ? Qt.ClosedHandCursor : Qt.OpenHandCursor
        onPressed: mouse => panel.gripped(NewsroomEditor.NoEdge, mapToItem(null, mouse.x, mouse.y))
        onPositionChanged: mouse => panel.pulled(mapToItem(null, mouse.x, mouse.y))
        onReleased: panel.dropped()
        onCanceled: panel.cancelled()
    }
}
