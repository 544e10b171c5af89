import QtQuick

/// The name of a table's column.
DeskText {
    anchors.verticalCenter: parent ? parent.verticalCenter : undefined
    type: DeskText.Meta
    color: Theme.text3
}
