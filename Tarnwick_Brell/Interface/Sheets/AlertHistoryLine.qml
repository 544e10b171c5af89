import QtQuick
import TarnwickBrell.Controls

/// Something that was told, or was not, below the name of its day where it is the day's first.
Item {
    id: line

    required property int index
    required property string heading
    required property string time
    required property string title
    required property string reason
    required property string symbol
    required property string outcome
    required property bool hasRule
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false

    signal chosen
    signal opened
    signal ruleWanted

    implicitHeight: day.height + PageSizes.logRow

    SectionLabel {
        id: day

        width: parent.width
        height: line.heading ? implicitHeight : 0
        visible: line.heading
        start: Theme.space2
        text: line.heading
    }
    TableRow {
        y: day.height
        width: parent.width
        height: PageSizes.logRow
        start: PageSizes.logTime + Theme.space2
        end: 0
        ground: Theme.raised
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            DeskText {
                x: Theme.space2
                anchors.verticalCenter: title.verticalCenter
                type: DeskText.Secondary
                color: Theme.text3
                text: line.time
                Accessible.ignored: true
            }
            DeskText {
                id: title

                x: PageSizes.logTime + Theme.space2
                y: Theme.space2
                width: told.x - Theme.space2 - x
                type: DeskText.Base
                text: line.title
                Accessible.ignored: true
            }
            Row {
                id: told

                anchors.right: parent.right
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: title.verticalCenter
                spacing: Theme.space1

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: line.symbol
                    size: Theme.iconInMeta
                    color: Theme.text3
                }
                DeskText {
                    type: DeskText.Meta
                    color: Theme.text3
                    text: line.outcome
                    Accessible.ignored: true
                }
            }
            DeskText {
                anchors.left: title.left
                anchors.top: title.bottom
                width: (rule.visible ? rule.x - Theme.space2 : parent.width - Theme.space2) - x
                type: DeskText.Meta
                color: Theme.text3
                text: line.reason
                Accessible.ignored: true
            }
            LinkText {
                id: rule

                anchors.right: parent.right
                anchors.rightMargin: Theme.space2
                anchors.top: title.bottom
                visible: line.hasRule
                type: DeskText.Meta
                text: qsTr("Edit rule")
                onClicked: line.ruleWanted()
            }
        }
    }
}
