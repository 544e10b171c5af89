pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Apple's services: problems first, then each service's days, with the incident log beside them.
PageBody {
    id: page

    required property StatusPageModel content

    function step(by: int) {
        list.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        mainLeast: Theme.wireLeast
        pane: log

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        ServiceColumns {
            id: places

            width: list.width
        }
        TableList {
            id: list

            /// The day that is read in the selected row, counted from the first; -1 for none.
            property int reading: -1

            function canChoose(row: int): bool {
                return page.content.isService(row) || page.content.isFold(row);
            }
            function read(day: int) {
                if (currentIndex >= 0)
                    reading = Math.max(places.allDays - places.days, Math.min(places.allDays - 1, day));
            }

            /// While a day is read, Home and End lead to the first and the last one.
            function takesKey(event: KeyEvent): bool {
                if (reading < 0 || event.key !== Qt.Key_Home && event.key !== Qt.Key_End)
                    return movedBy(event.key);
                read(event.key === Qt.Key_Home ? 0 : places.allDays - 1);
                return true;
            }

            anchors.fill: parent
            focus: true
            label: qsTr("Services")
            model: page.content.rows
            head: Item {
                width: list.width
                height: logButton.visible ? PageSizes.tableTitle : 0

                DeskButton {
                    id: logButton

                    anchors.right: parent.right
                    anchors.rightMargin: Theme.gridPadding
                    anchors.verticalCenter: parent.verticalCenter
                    visible: !split.isBeside
                    symbol: "list.bullet"
                    text: qsTr("Incident log, %1").arg(page.content.logText)
                    key: qsTr("F6")
                    onClicked: split.openPane()
                }
            }
            foot: StatusLegend {
                width: list.width
            }
            onCurrentIndexChanged: reading = -1
            onOpened: row => page.content.activate(row)
            Keys.onLeftPressed: read(reading < 0 ? places.allDays - 1 : reading - 1)
            Keys.onRightPressed: read(reading < 0 ? places.allDays - 1 : reading + 1)
            Keys.onShortcutOverride: event => event.accepted = reading >= 0 && event.key === Qt.Key_Escape
            Keys.onEscapePressed: event => {
                event.accepted = reading >= 0;
                reading = -1;
            }

            delegate: StatusRow {
                width: list.width
                columns: places
                dayNames: page.content.dayNames
                listFocused: list.activeFocus
                isCurrent: ListView.isCurrentItem
                reading: pointed >= 0 ? pointed : isCurrent ? list.reading : -1
                readingText: reading >= 0 ? page.content.dayText(index, reading) : ""
                onChosen: {
                    list.forceActiveFocus();
                    list.choose(index);
                }
                onActivated: page.content.activate(index)
            }
        }
    }
    IncidentLogPane {
        id: log

        content: page.content
    }
}
