pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What insiders did.
FocusScope {
    id: table

    required property RecordsPageModel content
    required property PageSplit split

    readonly property alias list: list
    readonly property alias columnsLeast: geometry.columnsLeast

    InsiderColumns {
        id: geometry

        width: table.width
    }
    TableHeader {
        id: header

        width: parent.width

        ColumnName {
            x: geometry.personX
            width: geometry.didX - x
            text: qsTr("Person")
        }
        ColumnName {
            x: geometry.didX
            width: PageSizes.insiderDid
            text: qsTr("Did")
        }
        ColumnName {
            x: geometry.sharesX
            width: PageSizes.insiderShares
            horizontalAlignment: Text.AlignRight
            text: qsTr("Shares")
        }
        ColumnName {
            x: geometry.averageX
            width: PageSizes.insiderAverage
            horizontalAlignment: Text.AlignRight
            visible: geometry.hasAverage
            text: qsTr("Average")
        }
        ColumnName {
            x: geometry.valueX
            width: PageSizes.insiderValue
            horizontalAlignment: Text.AlignRight
            text: qsTr("Value")
        }
        ColumnName {
            x: geometry.holdingX
            width: PageSizes.insiderHolding
            horizontalAlignment: Text.AlignRight
            visible: geometry.hasHolding
            text: qsTr("Of holding")
        }
        ColumnName {
            x: geometry.planX
            width: PageSizes.insiderPlan
            text: qsTr("Plan")
        }
        ColumnName {
            x: geometry.dayX
            width: PageSizes.insiderDay
            horizontalAlignment: Text.AlignRight
            visible: table.split.isBeside
            text: qsTr("Traded")
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
        label: qsTr("Trades of insiders")
        model: table.content.insiders
        onCurrentIndexChanged: if (currentIndex >= 0 && table.visible)
            table.content.row = currentIndex
        onOpened: row => table.content.openRow(row)

        delegate: InsiderLine {
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
