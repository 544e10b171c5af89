import QtQuick
import TarnwickBrell.Controls

/// A finding on the timeline, below the name of its day where it is the day's first; or a file.
Item {
    id: line

    required property int index
    required property string heading
    required property string time
    required property string title
    required property string detail
    required property string extent
    required property string badge
    required property bool isFailing
    required property bool isQuiet
    required property bool isNew
    required property bool hasNode
    required property string link
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false

    signal chosen
    signal opened

    implicitHeight: day.height + PageSizes.findingRow

    SectionLabel {
        id: day

        width: parent.width
        height: line.heading ? implicitHeight : 0
        visible: line.heading
        text: line.heading
    }
    TableRow {
        y: day.height
        width: parent.width
        height: PageSizes.findingRow
        start: PageSizes.findingText
        end: Theme.rowEnd
        hasLine: !line.hasNode
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            Hairline {
                x: PageSizes.findingNode
                visible: line.hasNode
                vertical: true
                height: parent.height
            }
            Rectangle {
                x: PageSizes.findingNode - Math.floor(width / 2)
                anchors.verticalCenter: title.verticalCenter
                visible: line.hasNode
                width: PageSizes.timelineNode
                height: width
                radius: width / 2
                color: line.isNew ? Theme.accentText : Theme.surface
                border.width: Theme.markRing
                border.color: line.isNew ? Theme.accentText : Theme.edge
            }
            DeskText {
                width: PageSizes.findingNode - Theme.space3
                anchors.verticalCenter: title.verticalCenter
                horizontalAlignment: Text.AlignRight
                type: DeskText.Secondary
                color: Theme.text3
                text: line.time
                Accessible.ignored: true
            }
            DeskText {
                id: title

                x: PageSizes.findingText
                y: Theme.space2
                width: (badge.visible ? badge.x - Theme.space2 : parent.width - Theme.rowEnd) - x
                type: line.isNew ? DeskText.BaseStrong : DeskText.Base
                color: line.isNew || !line.hasNode ? Theme.text1 : Theme.text2
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
            DeskText {
                anchors.left: title.left
                anchors.top: title.bottom
                width: extent.x - x - Theme.space2
                type: DeskText.Meta
                color: line.isFailing ? Theme.red : Theme.text3
                text: line.detail
                Accessible.ignored: true
            }
            DeskText {
                id: extent

                anchors.right: parent.right
                anchors.rightMargin: Theme.rowEnd
                anchors.top: title.bottom
                type: DeskText.Meta
                color: Theme.text3
                text: line.extent
                Accessible.ignored: true
            }
        }
    }
}
