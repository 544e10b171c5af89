import QtQuick
import TarnwickBrell.Controls

/// A month, or an event: its day, what it is, the days until then.
Item {
    id: line

    required property int index
    required property bool isHeading
    required property string title
    required property string day
    required property string weekday
    required property string badge
    required property string detail
    required property string days
    required property bool isReleased
    required property bool isPast
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false
    property bool pale: false

    signal chosen
    signal opened

    readonly property color ink: pale || isPast ? Theme.text2 : Theme.text1

    implicitHeight: isHeading ? Theme.sectionLabel : PageSizes.eventRow

    SectionLabel {
        width: parent.width
        visible: line.isHeading
        text: line.title
    }
    TableRow {
        width: parent.width
        height: PageSizes.eventRow
        visible: !line.isHeading
        start: Theme.gridPadding + PageSizes.eventDate + Theme.space4
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            Column {
                x: Theme.gridPadding
                width: PageSizes.eventDate
                anchors.verticalCenter: parent.verticalCenter

                DeskText {
                    width: parent.width
                    horizontalAlignment: Text.AlignRight
                    type: DeskText.Heading
                    text: line.day
                    color: line.ink
                    Accessible.ignored: true
                }
                DeskText {
                    width: parent.width
                    horizontalAlignment: Text.AlignRight
                    visible: text
                    type: DeskText.Meta
                    text: line.weekday
                    color: Theme.text3
                    Accessible.ignored: true
                }
            }
            Column {
                x: Theme.gridPadding + PageSizes.eventDate + Theme.space4
                width: end.x - x - Theme.space3
                anchors.verticalCenter: parent.verticalCenter

                Item {
                    width: parent.width
                    height: name.height

                    DeskText {
                        id: name

                        width: Math.min(implicitWidth, parent.width - mark.width - Theme.space2)
                        type: line.isPast ? DeskText.Base : DeskText.BaseMedium
                        text: line.title
                        color: line.ink
                        Accessible.ignored: true
                    }
                    Badge {
                        id: mark

                        anchors.left: name.right
                        anchors.leftMargin: Theme.space2
                        anchors.verticalCenter: name.verticalCenter
                        width: visible ? implicitWidth : 0
                        visible: line.badge
                        text: line.badge
                        Accessible.ignored: true
                    }
                }
                DeskText {
                    width: parent.width
                    visible: text
                    type: DeskText.Meta
                    text: line.detail
                    color: Theme.text3
                    Accessible.ignored: true
                }
            }
            Row {
                id: end

                anchors.right: parent.right
                anchors.rightMargin: Theme.gridPadding
                anchors.verticalCenter: parent.verticalCenter
                spacing: Theme.space2

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: line.isReleased
                    name: "checkmark"
                    size: Theme.iconInMeta
                    color: line.pale ? Theme.text3 : Theme.green
                }
                DeskText {
                    width: Math.max(implicitWidth, Theme.daysColumn)
                    horizontalAlignment: Text.AlignRight
                    type: line.isPast ? DeskText.Base : DeskText.BaseStrong
                    text: line.days
                    color: line.ink
                    Accessible.ignored: true
                }
            }
        }
    }
}
