import QtQuick
import TarnwickBrell.Controls

/// Opens the pane of a page where it has no room beside the list.
IconButton {
    required property PageSplit split

    visible: split !== null && !split.isBeside
    symbol: "sidebar.right"
    key: qsTr("F6")
    onClicked: split.openPane()
}
