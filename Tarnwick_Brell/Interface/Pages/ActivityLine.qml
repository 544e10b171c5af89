import QtQuick
import TarnwickBrell.Controls

/// A line of the log, below the name of its day where it is the day's first.
Item {
    id: line

    required property int index
    required property string heading
    required property string headingFact
    required property string time
    required property string symbol
    required property string title
    required property string detail
    required property string badge
    required property bool isNew
    required property string told
    required property string toldSymbol
    required property string link
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false

    signal chosen
    signal opened

    implicitHeight: day.height + PageSizes.logRow

    SectionLabel {
        id: day

        width: parent.width
        height: line.heading ? implicitHeight : 0
        visible: line.heading
        start: Theme.rowText
        end: Theme.rowEnd
        text: line.heading
        detail: line.headingFact
    }
    TableRow {
        y: day.height
        width: parent.width
        height: PageSizes.logRow
        start: Theme.rowText + PageSizes.logTime + PageSizes.logSymbol
        end: Theme.rowEnd
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            UnreadDot {
                x: Theme.space3
                anchors.verticalCenter: title.verticalCenter
                visible: line.isNew
                Accessible.ignored: true
            }
            DeskText {
                x: Theme.rowText
                anchors.verticalCenter: title.verticalCenter
                type: DeskText.Secondary
                color: Theme.text3
                text: line.time
                Accessible.ignored: true
            }
            Symbol {
                x: Theme.rowText + PageSizes.logTime
                anchors.verticalCenter: title.verticalCenter
                name: line.symbol
                color: Theme.text2
            }
            DeskText {
                id: title

                x: Theme.rowText + PageSizes.logTime + PageSizes.logSymbol
                y: Theme.space2
                width: (badge.visible ? badge.x - Theme.space2 : parent.width - Theme.rowEnd) - x
                type: line.isNew ? DeskText.BaseStrong : DeskText.Base
                color: line.isNew ? Theme.text1 : Theme.text2
                text: line.title
                Accessible.ignored: true
            }
            Badge {
                id: badge

                anchors.right: parent.right
                anchors.rightMargin: Theme.rowEnd
                anchors.verticalCenter: title.verticalCenter
                visible: line.badge
                text: line.badge
                Accessible.ignored: true
            }
            Row {
                id: told

                anchors.right: parent.right
                anchors.rightMargin: Theme.rowEnd
                anchors.top: title.bottom
                visible: line.told
                spacing: Theme.space1

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: line.toldSymbol
                    size: Theme.iconInMeta
                    color: Theme.text3
                }
                DeskText {
                    type: DeskText.Meta
                    color: Theme.text3
                    text: line.told
                    Accessible.ignored: true
                }
            }
            DeskText {
                anchors.left: title.left
                anchors.top: title.bottom
                width: (told.visible ? told.x - Theme.space2 : parent.width - Theme.rowEnd) - x
                type: DeskText.Meta
                color: Theme.text3
                text: line.detail
                Accessible.ignored: true
            }
        }
    }
}
