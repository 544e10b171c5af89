import QtQuick

/// The line above a table with the names of its columns, which are its children.
Item {
    id: header

    property int start: Theme.gridPadding
    property int end: Theme.gridPadding

    implicitHeight: Theme.tableRow
    Accessible.ignored: true

    Hairline {
        anchors.bottom: parent.bottom
        x: header.start
        width: parent.width - x - header.end
    }
}
