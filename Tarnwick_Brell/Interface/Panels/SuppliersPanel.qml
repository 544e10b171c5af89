pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Shares by group. As space shrinks, the currency goes first, then the name, then the sparkline.
Item {
    id: panel

    required property SuppliersPanelModel content
    readonly property bool pale: content.state === PanelModel.Stale
    readonly property color ink: pale ? Theme.text2 : Theme.text1

    PanelList {
        id: rows
        anchors.fill: parent
        label: qsTr("Shares")
        model: panel.content.rows
        delegate: Item {
            id: row

            required property string heading
            required property string symbol
            required property string name
            required property string price
            required property string currency
            required property string change
            required property int move
            required property list<point> line
            required property string spokenText

            width: rows.width
            height: Theme.tableRow + (heading ? Theme.tableHeader : 0)
            Accessible.role: Accessible.ListItem
            Accessible.name: spokenText

            DeskText {
                width: parent.width
                visible: text
                type: DeskText.MetaStrong
                text: row.heading
                color: Theme.text3
                Accessible.role: Accessible.Heading
            }
            Item {
                id: middle
                anchors.bottom: parent.bottom
                width: parent.width
                height: Theme.tableRow
            }
            Hairline {
                anchors.bottom: parent.bottom
                width: parent.width
            }
            DeskText {
                id: symbol
                anchors.verticalCenter: middle.verticalCenter
                width: Theme.symbolColumn
                type: DeskText.SecondaryMedium
                text: row.symbol
                color: panel.ink
                Accessible.ignored: true
            }
            DeskText {
                anchors.left: symbol.right
                anchors.leftMargin: Theme.space2
                anchors.right: spark.left
                anchors.rightMargin: Theme.space3
                anchors.verticalCenter: middle.verticalCenter
                visible: rows.width >= Theme.shareNameFrom
                type: DeskText.Secondary
                text: row.name
                color: Theme.text2
                Accessible.ignored: true
            }
            Sparkline {
                id: spark
                anchors.right: price.left
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: middle.verticalCenter
                visible: rows.width >= Theme.shareLineFrom
                points: row.line
                move: row.move
                pale: panel.pale
            }
            DeskText {
                id: price
                anchors.right: currency.left
                anchors.verticalCenter: middle.verticalCenter
                width: Theme.priceColumn
                horizontalAlignment: Text.AlignRight
                type: DeskText.Secondary
                text: row.price
                color: panel.ink
                Accessible.ignored: true
            }
            DeskText {
                id: currency
                anchors.right: change.left
                anchors.verticalCenter: middle.verticalCenter
                width: visible ? Theme.currencyColumn : 0
                leftPadding: Theme.space1
                visible: rows.width >= Theme.shareCurrencyFrom
                type: DeskText.Meta
                text: row.currency
                color: Theme.text3
                Accessible.ignored: true
            }
            DeskText {
                id: change
                anchors.right: parent.right
                anchors.verticalCenter: middle.verticalCenter
                width: Theme.changeColumn
                horizontalAlignment: Text.AlignRight
                type: DeskText.SecondaryMedium
                text: row.change
                color: panel.pale ? Theme.text2
                     : row.move === PriceMove.Up ? Theme.green
                     : row.move === PriceMove.Down ? Theme.red : Theme.text2
                Accessible.ignored: true
            }
        }
    }
}
