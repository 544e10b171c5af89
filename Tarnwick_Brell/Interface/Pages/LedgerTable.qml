pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The outlets and what became of their claims. As space shrinks, the median goes first, then the
/// shares.
FocusScope {
    id: table

    required property LedgerPageModel content
    required property PageSplit split

    readonly property int columnsLeast: 2 * Theme.gridPadding + PageSizes.raceOutletLeast + 5 * PageSizes.raceNumberColumn
    readonly property bool hasShares: width >= columnsLeast + PageSizes.shareBarWidth + PageSizes.columnGap
    readonly property bool hasDays: width >= columnsLeast + PageSizes.shareBarWidth + PageSizes.ledgerDaysColumn + 2 * PageSizes.columnGap
    readonly property int daysX: width - Theme.gridPadding - (hasDays ? PageSizes.ledgerDaysColumn : 0)
    readonly property int sharesX: daysX - (hasDays ? PageSizes.columnGap : 0) - (hasShares ? PageSizes.shareBarWidth : 0)
    readonly property int numbersX: sharesX - (hasShares ? PageSizes.columnGap : 0) - 5 * PageSizes.raceNumberColumn
    readonly property list<color> inks: [Theme.greenMark, Theme.redMark, Theme.accentLine, Theme.edge]
    readonly property list<string> names: [qsTr("Claims"), qsTr("Confirmed"), qsTr("Denied"), qsTr("Open"), qsTr("Expired")]

    function step(by: int) {
        rows.step(by);
    }

    TableHeader {
        id: header

        width: parent.width

        ColumnName {
            x: Theme.gridPadding
            width: table.numbersX - x
            text: qsTr("Outlet")
        }
        Repeater {
            model: table.names

            ColumnName {
                required property string modelData
                required property int index

                x: table.numbersX + index * PageSizes.raceNumberColumn
                width: PageSizes.raceNumberColumn
                horizontalAlignment: Text.AlignRight
                text: modelData
            }
        }
        ColumnName {
            x: table.daysX
            width: PageSizes.ledgerDaysColumn
            horizontalAlignment: Text.AlignRight
            visible: table.hasDays
            text: qsTr("Median time")
        }
        PaneLink {
            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            split: table.split
            text: qsTr("Show the claims")
        }
    }
    TableList {
        id: rows

        anchors.fill: parent
        anchors.topMargin: header.height
        label: qsTr("Outlets by their claims")
        model: table.content.outlets
        onCurrentIndexChanged: table.content.chooseOutlet(currentIndex)
        onOpened: table.split.openPane()

        delegate: TableRow {
            id: entry

            required property string outlet
            required property string claims
            required property string confirmed
            required property string denied
            required property string open
            required property string expired
            required property list<double> shares
            required property string days
            required property int index

            width: rows.width
            isCurrent: index === rows.currentIndex
            listFocused: rows.activeFocus
            onChosen: {
                rows.choose(index);
                rows.forceActiveFocus(Qt.MouseFocusReason);
            }
            onOpened: table.split.openPane()

            contentItem: Item {
                DeskText {
                    x: Theme.gridPadding
                    width: table.numbersX - x
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.BaseMedium
                    text: entry.outlet
                    Accessible.ignored: true
                }
                Repeater {
                    model: [entry.claims, entry.confirmed, entry.denied, entry.open, entry.expired]

                    DeskText {
                        required property string modelData
                        required property int index

                        x: table.numbersX + index * PageSizes.raceNumberColumn
                        width: PageSizes.raceNumberColumn
                        anchors.verticalCenter: parent.verticalCenter
                        horizontalAlignment: Text.AlignRight
                        type: index === 0 ? DeskText.BaseStrong : DeskText.Base
                        color: index === 0 ? Theme.text1 : Theme.text2
                        text: modelData
                        Accessible.ignored: true
                    }
                }
                ShareBar {
                    x: table.sharesX
                    width: PageSizes.shareBarWidth
                    anchors.verticalCenter: parent.verticalCenter
                    visible: table.hasShares
                    shares: entry.shares
                    inks: table.inks
                }
                DeskText {
                    x: table.daysX
                    width: PageSizes.ledgerDaysColumn
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    visible: table.hasDays
                    color: Theme.text2
                    text: entry.days
                    Accessible.ignored: true
                }
            }
        }
    }
}
