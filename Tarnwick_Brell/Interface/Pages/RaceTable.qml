pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The outlets and how they did. As space shrinks, the sourcing goes first, then the bars.
FocusScope {
    id: table

    required property RacesPageModel content
    required property PageSplit split

    readonly property int barsWidth: 26 * (PageSizes.raceBarWidth + PageSizes.raceBarGap)
    readonly property int columnsLeast: 2 * Theme.gridPadding + PageSizes.raceOutletLeast + 2 * PageSizes.raceNumberColumn
                                        + PageSizes.raceLeadColumn
    readonly property bool hasBars: width >= columnsLeast + barsWidth + PageSizes.columnGap
    readonly property bool hasShares: width >= columnsLeast + barsWidth + PageSizes.shareBarWidth + 2 * PageSizes.columnGap
    readonly property int sharesX: width - Theme.gridPadding - (hasShares ? PageSizes.shareBarWidth : 0)
    readonly property int barsX: sharesX - (hasShares ? PageSizes.columnGap : 0) - (hasBars ? barsWidth : 0)
    readonly property int leadX: barsX - (hasBars ? PageSizes.columnGap : 0) - PageSizes.raceLeadColumn
    readonly property int ledX: leadX - PageSizes.raceNumberColumn
    readonly property int subjectsX: ledX - PageSizes.raceNumberColumn
    readonly property list<color> inks: [Theme.greenMark, Theme.blueMark, Theme.report, Theme.amberMark, Theme.edge]

    function step(by: int) {
        rows.step(by);
    }

    TableHeader {
        id: header

        width: parent.width

        ColumnName {
            x: Theme.gridPadding
            width: table.subjectsX - x
            text: qsTr("Outlet")
        }
        ColumnName {
            x: table.subjectsX
            width: PageSizes.raceNumberColumn
            horizontalAlignment: Text.AlignRight
            text: qsTr("Subjects")
        }
        ColumnName {
            x: table.ledX
            width: PageSizes.raceNumberColumn
            horizontalAlignment: Text.AlignRight
            text: qsTr("Led")
        }
        ColumnName {
            x: table.leadX
            width: PageSizes.raceLeadColumn
            horizontalAlignment: Text.AlignRight
            text: qsTr("Median lead")
        }
        ColumnName {
            x: table.barsX
            visible: table.hasBars
            text: qsTr("Leads over the time")
        }
        ColumnName {
            x: table.sharesX
            visible: table.hasShares
            text: qsTr("Led, by sourcing")
        }
        PaneLink {
            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            split: table.split
            text: qsTr("Show the two picked outlets")
        }
    }
    TableList {
        id: rows

        anchors.fill: parent
        anchors.topMargin: header.height
        label: qsTr("Outlets by how often they led")
        model: table.content.rows
        onOpened: row => table.content.pick(row)

        delegate: TableRow {
            id: entry

            required property string outlet
            required property string subjects
            required property string led
            required property string lead
            required property bool isAhead
            required property list<double> bars
            required property list<double> shares
            required property bool isPicked
            required property int index

            width: rows.width
            implicitHeight: PageSizes.raceRow
            isCurrent: index === rows.currentIndex
            listFocused: rows.activeFocus
            ground: isPicked ? Theme.accentSoft : Theme.surface
            Accessible.checkable: true
            Accessible.checked: isPicked
            onChosen: {
                rows.choose(index);
                rows.forceActiveFocus(Qt.MouseFocusReason);
                table.content.pick(index);
            }

            contentItem: Item {
                DeskText {
                    x: Theme.gridPadding
                    width: table.subjectsX - x
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.BaseMedium
                    text: entry.outlet
                    Accessible.ignored: true
                }
                DeskText {
                    x: table.subjectsX
                    width: PageSizes.raceNumberColumn
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    color: Theme.text2
                    text: entry.subjects
                    Accessible.ignored: true
                }
                DeskText {
                    x: table.ledX
                    width: PageSizes.raceNumberColumn
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    type: DeskText.BaseStrong
                    text: entry.led
                    Accessible.ignored: true
                }
                DeskText {
                    x: table.leadX
                    width: PageSizes.raceLeadColumn
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    color: entry.isAhead ? Theme.green : Theme.text2
                    text: entry.lead
                    Accessible.ignored: true
                }
                RaceBars {
                    x: table.barsX
                    anchors.verticalCenter: parent.verticalCenter
                    visible: table.hasBars
                    bars: entry.bars
                }
                ShareBar {
                    x: table.sharesX
                    width: PageSizes.shareBarWidth
                    anchors.verticalCenter: parent.verticalCenter
                    visible: table.hasShares
                    shares: entry.shares
                    inks: table.inks
                }
            }
        }
    }
}
