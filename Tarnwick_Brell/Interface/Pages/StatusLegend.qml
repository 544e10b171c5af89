pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// What the cells of the days mean.
Item {
    id: legend

    readonly property list<string> names: [qsTr("No data"), qsTr("Up"), qsTr("Maintenance"), qsTr("Issue"), qsTr("Outage")]

    implicitHeight: PageSizes.tableTitle
    Accessible.ignored: true

    Row {
        x: Theme.gridPadding
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space4

        Repeater {
            model: legend.names

            Row {
                id: item

                required property string modelData
                required property int index

                spacing: Theme.badgeGap

                DayCells {
                    days: [item.index]
                    Accessible.ignored: true
                }
                DeskText {
                    type: DeskText.Meta
                    text: item.modelData
                    color: Theme.text3
                }
            }
        }
    }
}
