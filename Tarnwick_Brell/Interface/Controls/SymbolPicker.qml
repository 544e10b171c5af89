pragma ComponentBehavior: Bound
import QtQuick

/// The symbols that a newsroom may carry, to choose one.
Popover {
    id: picker

    required property list<string> symbols
    required property string current

    signal chosen(name: string)

    title: qsTr("Symbol")
    onOpened: grid.forceActiveFocus()

    GridView {
        id: grid

        readonly property int columns: Math.max(1, Math.floor(width / cellWidth))

        width: parent ? parent.width : 0
        height: Math.ceil(count / columns) * cellHeight
        cellWidth: Theme.leastTarget + Theme.space2
        cellHeight: cellWidth
        interactive: false
        model: picker.symbols
        Keys.onReturnPressed: choose(currentIndex)
        Keys.onSpacePressed: choose(currentIndex)

        function choose(index: int) {
            picker.chosen(picker.symbols[index]);
            picker.close();
        }

        delegate: IconButton {
            required property string modelData
            required property int index

            width: Theme.leastTarget
            height: Theme.leastTarget
            focusPolicy: Qt.NoFocus
            symbol: modelData
            text: modelData
            tip: ""
            checkable: true
            checked: modelData === picker.current
            onClicked: grid.choose(index)

            Rectangle {
                anchors.fill: parent
                visible: grid.activeFocus && parent.GridView.isCurrentItem
                radius: Theme.radiusControl
                color: "transparent"
                border.width: Theme.focusRing
                border.color: Theme.accent
            }
        }
    }
}
