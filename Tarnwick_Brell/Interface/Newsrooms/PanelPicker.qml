pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The kinds of panels to add, docked beside the grid. A row is added by a click or Enter, or
/// dragged onto the grid.
FocusScope {
    id: picker

    required property PanelPickerModel kinds

    signal closeWanted
    signal lifted(at: point)
    signal pulled(at: point)
    signal dropped
    signal cancelled

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Add a panel")
    Keys.onEscapePressed: picker.closeWanted()

    Rectangle {
        anchors.fill: parent
        color: Theme.raised
    }
    Hairline {
        vertical: true
        height: parent.height
    }
    DeskText {
        id: heading

        x: Theme.space5
        width: hint.x - x - Theme.space2
        height: Theme.toolbar
        verticalAlignment: Text.AlignVCenter
        type: DeskText.BaseStrong
        text: qsTr("Add a panel")
        Accessible.role: Accessible.Heading
    }
    DeskText {
        id: hint

        anchors.right: close.left
        anchors.rightMargin: Theme.space1
        height: Theme.toolbar
        verticalAlignment: Text.AlignVCenter
        type: DeskText.Meta
        color: Theme.text3
        text: qsTr("Drag, or Enter")
    }
    IconButton {
        id: close

        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        y: (Theme.toolbar - height) / 2
        symbol: "xmark"
        text: qsTr("Close")
        key: qsTr("Esc")
        onClicked: picker.closeWanted()
    }
    ListView {
        id: list

        anchors.top: heading.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        focus: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        highlightFollowsCurrentItem: false
        interactive: !picker.isLifting
        model: picker.kinds.rows
        currentIndex: picker.kinds.current
        Accessible.role: Accessible.List
        Accessible.name: heading.text
        T.ScrollBar.vertical: ThinScrollBar {}
        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)

        Keys.onUpPressed: picker.kinds.current = picker.kinds.current - 1
        Keys.onDownPressed: picker.kinds.current = picker.kinds.current + 1
        Keys.onReturnPressed: picker.kinds.add(picker.kinds.current)
        Keys.onEnterPressed: picker.kinds.add(picker.kinds.current)

        delegate: PanelPickerRow {
            width: list.width
            current: index === picker.kinds.current
            preview: current ? picker.kinds.preview : null
            onPicked: {
                list.forceActiveFocus();
                picker.kinds.current = index;
            }
            onChosen: picker.kinds.add(index)
            onLifted: at => {
                picker.kinds.lift(index);
                picker.isLifting = true;
                picker.lifted(at);
            }
            onPulled: at => picker.pulled(at)
            onDropped: {
                picker.isLifting = false;
                picker.dropped();
            }
            onCancelled: {
                picker.isLifting = false;
                picker.cancelled();
            }
        }
    }

    property bool isLifting: false
}
