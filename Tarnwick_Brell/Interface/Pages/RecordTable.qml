pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Filings, or press releases.
FocusScope {
    id: table

    required property RecordsPageModel content
    required property PageSplit split
    required property string label
    required property var rows
    required property string badgeName
    required property string textName
    required property string whenName

    readonly property alias list: list

    RecordColumns {
        id: geometry

        width: table.width
    }
    TableHeader {
        id: header

        width: parent.width

        ColumnName {
            x: geometry.badgeX
            width: PageSizes.recordBadge
            text: table.badgeName
        }
        ColumnName {
            x: geometry.textX
            width: geometry.textWidth
            text: table.textName
        }
        ColumnName {
            x: geometry.companyX
            width: PageSizes.recordCompany
            visible: geometry.hasCompany
            text: qsTr("Company")
        }
        ColumnName {
            x: geometry.whenX
            width: PageSizes.recordWhen
            horizontalAlignment: Text.AlignRight
            visible: table.split.isBeside
            text: table.whenName
        }
        PaneLink {
            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            split: table.split
            text: qsTr("Show the record")
        }
    }
    TableList {
        id: list

        anchors.fill: parent
        anchors.topMargin: header.height
        label: table.label
        model: table.rows
        onCurrentIndexChanged: if (currentIndex >= 0 && table.visible)
            table.content.row = currentIndex
        onOpened: row => table.content.openRow(row)

        delegate: RecordLine {
            columns: geometry
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: table.content.openRow(index)
        }
    }
    Connections {
        target: table.content
        enabled: table.visible

        function onChanged() {
            list.currentIndex = table.content.row;
        }
    }
    onVisibleChanged: if (visible)
        list.currentIndex = content.row
}
