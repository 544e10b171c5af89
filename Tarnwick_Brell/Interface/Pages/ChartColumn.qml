pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// A chart of the App Store: the arrow keys choose an app, left and right lead to the other chart.
FocusScope {
    id: chart

    required property string title
    required property string fact
    required property var rows
    required property int selectedRow
    property PageSplit split: null
    property bool pale: false
    readonly property int count: list.count

    signal chosen(row: int)
    signal crossed(row: int)
    signal opened

    function step(by: int) {
        list.forceActiveFocus();
        list.step(by);
    }
    function enter(row: int) {
        if (row < 0)
            return;
        list.forceActiveFocus();
        list.choose(row);
    }

    onSelectedRowChanged: if (list.currentIndex !== selectedRow) list.currentIndex = selectedRow

    Item {
        id: header

        width: parent.width
        height: Theme.listHeader

        DeskText {
            id: name
            x: Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.BaseStrong
            text: chart.title
            Accessible.role: Accessible.Heading
        }
        DeskText {
            anchors.left: name.right
            anchors.leftMargin: Theme.space2
            anchors.right: tools.left
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            color: Theme.text3
            text: chart.fact
        }
        Row {
            id: tools

            anchors.right: parent.right
            anchors.rightMargin: Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter

            DeskText {
                anchors.verticalCenter: parent.verticalCenter
                visible: list.hasCurve
                type: DeskText.Meta
                color: Theme.text3
                text: qsTr("30 days")
            }
            PaneLink {
                split: chart.split
                text: qsTr("Show the app's history")
            }
        }
        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }
    TableList {
        id: list

        readonly property bool hasCurve: width >= PageSizes.rankCurveFrom

        anchors.fill: parent
        anchors.topMargin: header.height
        label: chart.title
        model: chart.rows
        // Rows that come and go move the current one, which is no choice of the user's.
        onCurrentIndexChanged: if (activeFocus && currentIndex >= 0 && currentIndex !== chart.selectedRow) chart.chosen(currentIndex)
        Component.onCompleted: currentIndex = chart.selectedRow
        onOpened: chart.opened()
        Keys.onLeftPressed: chart.crossed(currentIndex)
        Keys.onRightPressed: chart.crossed(currentIndex)

        delegate: TableRow {
            id: app

            required property string rank
            required property string name
            required property string developer
            required property string artwork
            required property bool isApples
            required property list<real> curve
            required property string change
            required property int move
            required property bool isNew
            required property int index

            width: list.width
            implicitHeight: PageSizes.chartsRow
            isCurrent: index === list.currentIndex
            listFocused: list.activeFocus
            onChosen: chart.enter(index)
            onOpened: chart.opened()

            contentItem: Item {
                DeskText {
                    id: rank
                    x: Theme.gridPadding
                    width: Theme.rankColumn
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    type: DeskText.SecondaryStrong
                    text: app.rank
                    color: chart.pale ? Theme.text2 : Theme.text1
                    Accessible.ignored: true
                }
                StoryPicture {
                    id: icon
                    anchors.left: rank.right
                    anchors.leftMargin: Theme.space3
                    anchors.verticalCenter: parent.verticalCenter
                    width: Theme.appIcon
                    height: Theme.appIcon
                    radius: Theme.radiusControl
                    visible: Theme.showsPictures
                    picture: visible ? app.artwork : ""
                }
                TwoLineText {
                    id: words
                    anchors.left: icon.visible ? icon.right : rank.right
                    anchors.leftMargin: icon.visible ? Theme.space3 : Theme.space4
                    width: curve.x - x - Theme.space3 - (seal.visible ? seal.width + Theme.badgeGap : 0)
                    anchors.verticalCenter: parent.verticalCenter
                    first: app.name
                    second: app.developer
                    ink: chart.pale ? Theme.text2 : Theme.text1
                }
                Symbol {
                    id: seal
                    x: words.x + Math.min(words.implicitWidth, words.width) + Theme.badgeGap
                    y: words.y + Theme.step1
                    visible: app.isApples
                    name: "checkmark.seal"
                    size: Theme.iconInMeta
                    color: Theme.text2
                }
                RankCurve {
                    id: curve
                    x: end.x - (list.hasCurve ? width + Theme.space3 : 0)
                    anchors.verticalCenter: parent.verticalCenter
                    width: PageSizes.rankCurveWidth
                    height: PageSizes.rankCurveHeight
                    visible: list.hasCurve
                    levels: app.curve
                    lineWidth: Theme.sparkline
                    color: app.isApples && !chart.pale ? Theme.accentText : Theme.edge
                }
                Item {
                    id: end
                    anchors.right: parent.right
                    anchors.rightMargin: Theme.gridPadding
                    width: PageSizes.chartsMoveColumn
                    height: parent.height

                    Badge {
                        anchors.right: parent.right
                        anchors.verticalCenter: parent.verticalCenter
                        visible: app.isNew
                        kind: Badge.Fresh
                        text: qsTr("New")
                        Accessible.ignored: true
                    }
                    Row {
                        anchors.right: parent.right
                        anchors.verticalCenter: parent.verticalCenter
                        spacing: Theme.step2

                        Symbol {
                            anchors.verticalCenter: parent.verticalCenter
                            visible: app.move === PriceMove.Up || app.move === PriceMove.Down
                            name: app.move === PriceMove.Up ? "arrow.up" : "arrow.down"
                            size: Theme.iconInMeta
                            color: change.color
                        }
                        DeskText {
                            id: change
                            type: DeskText.SecondaryMedium
                            text: app.change
                            color: chart.pale ? Theme.text2
                                 : app.move === PriceMove.Up ? Theme.green
                                 : app.move === PriceMove.Down ? Theme.red : Theme.text3
                            Accessible.ignored: true
                        }
                    }
                }
            }
        }
    }
    PageMessage {
        text: list.count === 0 ? qsTr("No app of this chart matches the filter.") : ""
    }
}
