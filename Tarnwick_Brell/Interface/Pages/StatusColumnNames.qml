pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// The names of the columns above the services.
TableHeader {
    id: header

    required property StatusRow row

    ColumnName {
        x: header.row.columns.nameX
        text: qsTr("Service")
    }
    Repeater {
        model: header.row.columns.days === header.row.columns.allDays ? header.row.dayNames : [header.row.dayNames[2]]

        ColumnName {
            required property string modelData
            required property int index

            // Large text leaves room for today alone.
            visible: 2 * implicitWidth < header.row.columns.cellsWidth
            x: header.row.columns.cellsX + index * PageSizes.daysLeast * header.row.columns.pitch
            text: modelData
        }
    }
    ColumnName {
        x: header.row.columns.cellsX + header.row.columns.cellsWidth - width
        text: qsTr("Today")
    }
    ColumnName {
        x: header.row.columns.shareX + PageSizes.shareColumn - width
        visible: header.row.columns.hasShare
        text: header.row.share
    }
    ColumnName {
        x: header.row.columns.lastX
        text: qsTr("Last incident")
    }
}
