pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// A kind of trade that a person made, below the name of its month where it is the month's first.
Item {
    id: line

    required property InsiderColumns columns
    required property int index
    required property string heading
    required property string person
    required property string title
    required property string did
    required property string shares
    required property string average
    required property string value
    required property string holding
    required property string plan
    required property int planKind
    required property string day
    required property string note
    required property bool isQuiet
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false
    readonly property color ink: isQuiet ? Theme.text3 : Theme.text2

    signal chosen
    signal opened

    implicitHeight: month.height + row.height

    SectionLabel {
        id: month

        width: parent.width
        height: line.heading ? implicitHeight : 0
        visible: line.heading
        end: Theme.rowEnd
        text: line.heading
    }
    TableRow {
        id: row

        y: month.height
        width: parent.width
        height: Theme.tableRow + (line.note ? PageSizes.insiderNote : 0)
        start: Theme.rowText
        end: Theme.rowEnd
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            Item {
                id: cells

                width: parent.width
                height: Theme.tableRow

                DeskText {
                    id: person

                    x: line.columns.personX
                    width: Math.min(implicitWidth, line.columns.didX - x - Theme.space2)
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.BaseMedium
                    color: line.isQuiet ? Theme.text3 : Theme.text1
                    text: line.person
                    Accessible.ignored: true
                }
                DeskText {
                    anchors.left: person.right
                    anchors.leftMargin: Theme.space2
                    width: line.columns.didX - x - Theme.space2
                    anchors.verticalCenter: parent.verticalCenter
                    visible: width > Theme.space4
                    type: DeskText.Meta
                    color: Theme.text3
                    text: line.title
                    Accessible.ignored: true
                }
                DeskText {
                    x: line.columns.didX
                    width: PageSizes.insiderDid
                    anchors.verticalCenter: parent.verticalCenter
                    type: line.isQuiet ? DeskText.Base : DeskText.BaseMedium
                    color: line.isQuiet ? Theme.text3 : Theme.text1
                    text: line.did
                    Accessible.ignored: true
                }
                DeskText {
                    x: line.columns.sharesX
                    width: PageSizes.insiderShares
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    color: line.ink
                    text: line.shares
                    Accessible.ignored: true
                }
                DeskText {
                    x: line.columns.averageX
                    width: PageSizes.insiderAverage
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    visible: line.columns.hasAverage
                    color: line.ink
                    text: line.average
                    Accessible.ignored: true
                }
                DeskText {
                    x: line.columns.valueX
                    width: PageSizes.insiderValue
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    type: line.isQuiet ? DeskText.Base : DeskText.BaseStrong
                    color: line.isQuiet ? Theme.text3 : Theme.text1
                    text: line.value
                    Accessible.ignored: true
                }
                DeskText {
                    x: line.columns.holdingX
                    width: PageSizes.insiderHolding
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    visible: line.columns.hasHolding
                    color: line.ink
                    text: line.holding
                    Accessible.ignored: true
                }
                Symbol {
                    id: planMark

                    x: line.columns.planX
                    anchors.verticalCenter: parent.verticalCenter
                    visible: line.plan !== "" && line.planKind === 0
                    name: "calendar"
                    color: Theme.text3
                }
                DeskText {
                    x: line.columns.planX + (planMark.visible ? planMark.width + Theme.space1 : 0)
                    width: line.columns.dayX - x - Theme.space2
                    anchors.verticalCenter: parent.verticalCenter
                    type: line.planKind === 1 ? DeskText.BaseStrong : DeskText.Base
                    color: line.planKind === 1 ? Theme.text1 : line.planKind === 2 ? Theme.text3 : Theme.text2
                    text: line.plan
                    Accessible.ignored: true
                }
                DeskText {
                    x: line.columns.dayX
                    width: PageSizes.insiderDay
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    type: DeskText.Secondary
                    color: Theme.text3
                    text: line.day
                    Accessible.ignored: true
                }
            }
            DeskText {
                x: line.columns.personX
                y: cells.height
                width: parent.width - x - Theme.rowEnd
                visible: text
                type: DeskText.Meta
                color: Theme.text3
                text: line.note
                Accessible.ignored: true
            }
        }
    }
}
