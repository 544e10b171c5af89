import QtQuick
import TarnwickBrell.Controls

/// An entry of a docket: day, number, kind, text, and what its document costs. A remark has a text
/// alone.
TableRow {
    id: line

    required property int index
    required property string day
    required property string number
    required property string kind
    required text
    required property string document
    required property bool isFree
    required property bool isRemark
    required property bool isNew
    required property string link

    readonly property int kindX: Theme.rowText + PageSizes.entryDay + PageSizes.entryNumber + Theme.space3

    implicitHeight: PageSizes.entryRow
    start: Theme.rowText
    end: Theme.rowText

    contentItem: Item {
        UnreadDot {
            x: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            visible: line.isNew
            Accessible.ignored: true
        }
        Symbol {
            x: Theme.rowText
            anchors.verticalCenter: parent.verticalCenter
            visible: line.isRemark
            name: "info.circle"
            color: Theme.amber
        }
        DeskText {
            x: Theme.rowText
            width: PageSizes.entryDay
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            color: Theme.text3
            text: line.day
            Accessible.ignored: true
        }
        DeskText {
            x: Theme.rowText + PageSizes.entryDay
            width: PageSizes.entryNumber
            anchors.verticalCenter: parent.verticalCenter
            horizontalAlignment: Text.AlignRight
            type: DeskText.Secondary
            color: Theme.text2
            text: line.number
            Accessible.ignored: true
        }
        Badge {
            id: kind

            x: line.kindX
            width: Math.min(implicitWidth, PageSizes.entryKind - Theme.space2)
            anchors.verticalCenter: parent.verticalCenter
            visible: line.kind
            clip: true
            text: line.kind
            Accessible.ignored: true
        }
        DeskText {
            x: line.isRemark ? Theme.rowText + Theme.space5 : line.kindX + PageSizes.entryKind
            width: cost.x - x - Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: line.isNew ? DeskText.BaseStrong : DeskText.Base
            color: line.isNew ? Theme.text1 : Theme.text2
            text: line.text
            Accessible.ignored: true
        }
        DeskText {
            id: cost

            x: parent.width - width - Theme.rowText
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.SecondaryMedium
            color: line.isFree ? Theme.accentText : Theme.text3
            text: line.document
            Accessible.ignored: true
        }
    }
}
