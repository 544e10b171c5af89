import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls

/// A row of a panel's list. A click opens its story and does not take the focus.
T.AbstractButton {
    id: row

    required property int index
    required property string spokenText
    property bool opens: true
    /// Empty where the row is not a story that can be dragged out.
    property string storyID
    property bool parted: true
    readonly property StoryPanelList list: ListView.view as StoryPanelList

    width: list?.width ?? implicitWidth
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.NoFocus
    hoverEnabled: opens
    onClicked: open()
    background: Rectangle {
        color: !row.opens ? "transparent"
             : row.down ? Theme.press
             : row.hovered ? Theme.hover : "transparent"

        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
            visible: row.parted && row.index + 1 < (row.list?.count ?? 0)
        }
        Rectangle {
            anchors.fill: parent
            visible: row.ListView.isCurrentItem && (row.list?.activeFocus ?? false)
            radius: Theme.radiusControl
            color: "transparent"
            border.width: Theme.focusRing
            border.color: Theme.accent
        }
    }
    Drag.active: dragging.active
    Drag.dragType: Drag.Automatic
    Drag.supportedActions: Qt.CopyAction
    Drag.mimeData: dragging.active ? list?.origin?.dragData(storyID) ?? ({}) : ({})
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText
    Accessible.onPressAction: open()

    // Upwards and downwards the list scrolls.
    DragHandler {
        id: dragging

        enabled: row.storyID !== ""
        target: null
        yAxis.enabled: false
        acceptedDevices: PointerDevice.Mouse
    }

    function open() {
        if (opens)
            list?.opened(index);
    }
}
