import QtQuick
import TarnwickBrell.Controls

/// A filing or a press release, below the name of its day where it is the day's first.
Item {
    id: line

    required property RecordColumns columns
    required property int index
    required property string heading
    required property string badge
    required property string text
    required property string mark
    required property string company
    required property string when
    required property bool isDatedOtherwise
    required property bool isNew
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false

    signal chosen
    signal opened

    implicitHeight: day.height + Theme.tableRow

    SectionLabel {
        id: day

        width: parent.width
        height: line.heading ? implicitHeight : 0
        visible: line.heading
        end: Theme.rowEnd
        text: line.heading
    }
    TableRow {
        y: day.height
        width: parent.width
        start: Theme.rowText
        end: Theme.rowEnd
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            UnreadDot {
                x: Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                visible: line.isNew
                Accessible.ignored: true
            }
            Badge {
                x: line.columns.badgeX
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, PageSizes.recordBadge - Theme.space1)
                visible: line.badge
                clip: true
                text: line.badge
                Accessible.ignored: true
            }
            DeskText {
                x: line.columns.textX
                width: line.columns.textWidth - (mark.visible ? mark.width + Theme.space2 : 0)
                anchors.verticalCenter: parent.verticalCenter
                type: line.isNew ? DeskText.BaseStrong : DeskText.Base
                color: line.isNew ? Theme.text1 : Theme.text2
                text: line.text
                Accessible.ignored: true
            }
            Badge {
                id: mark

                x: line.columns.textX + line.columns.textWidth - width
                anchors.verticalCenter: parent.verticalCenter
                visible: line.mark
                text: line.mark
                Accessible.ignored: true
            }
            DeskText {
                x: line.columns.companyX
                width: PageSizes.recordCompany - Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                visible: line.columns.hasCompany
                type: DeskText.Secondary
                color: Theme.text2
                text: line.company
                Accessible.ignored: true
            }
            DeskText {
                x: line.columns.whenX
                width: PageSizes.recordWhen
                anchors.verticalCenter: parent.verticalCenter
                horizontalAlignment: Text.AlignRight
                type: DeskText.Secondary
                color: line.isDatedOtherwise ? Theme.amber : Theme.text3
                text: line.when
                Accessible.ignored: true
            }
        }
    }
}
