import QtQuick
import TarnwickBrell.Controls

/// A followed page, or a suggested one below the heading of those.
Item {
    id: line

    required property int index
    required property string heading
    required property string name
    required property string address
    required property string when
    required property string fact
    required property bool isFailing
    required property bool isNew
    required property bool isSuggested
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false

    signal chosen
    signal opened

    implicitHeight: group.height + PageSizes.logRow

    SectionLabel {
        id: group

        width: parent.width
        height: line.heading ? implicitHeight : 0
        visible: line.heading
        start: Theme.rowText
        text: line.heading
    }
    TableRow {
        y: group.height
        width: parent.width
        height: PageSizes.logRow
        start: Theme.rowText
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            UnreadDot {
                x: Theme.space3
                anchors.verticalCenter: name.verticalCenter
                visible: line.isNew
                Accessible.ignored: true
            }
            DeskText {
                id: name

                x: Theme.rowText
                y: Theme.space2
                width: when.x - x - Theme.space2
                type: line.isNew ? DeskText.BaseStrong : DeskText.Base
                color: line.isSuggested ? Theme.text2 : Theme.text1
                text: line.name
                Accessible.ignored: true
            }
            DeskText {
                id: when

                x: parent.width - width - Theme.gridPadding
                anchors.verticalCenter: name.verticalCenter
                type: DeskText.Meta
                color: Theme.text3
                text: line.when
                Accessible.ignored: true
            }
            DeskText {
                x: name.x
                anchors.top: name.bottom
                width: parent.width - x - Theme.gridPadding
                type: DeskText.Meta
                color: line.isFailing ? Theme.red : Theme.text3
                text: line.fact || line.address
                Accessible.ignored: true
            }
        }
    }
}
