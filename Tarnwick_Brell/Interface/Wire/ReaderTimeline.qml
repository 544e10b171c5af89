pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The outlets that report the same news, in the order of publication.
Item {
    id: block

    required property ReaderModel reader
    signal storyWanted(storyID: string)

    visible: reader.timelineTitle !== ""
    implicitHeight: visible ? rows.y + rows.implicitHeight : 0

    Hairline {
        width: parent.width
    }
    DeskText {
        y: Theme.space4
        width: parent.width - fact.width - Theme.space3
        type: DeskText.MetaStrong
        color: Theme.text3
        text: block.reader.timelineTitle
        Accessible.role: Accessible.Heading
    }
    DeskText {
        id: fact

        y: Theme.space4
        anchors.right: parent.right
        type: DeskText.Meta
        color: Theme.text3
        text: block.reader.timelineFact
    }
    Column {
        id: rows

        y: Theme.space8 + Theme.space1
        width: parent.width

        Repeater {
            id: stories

            model: block.reader.timeline

            TimelineRow {
                required property int index
                required property string storyID

                width: rows.width
                isLast: index === stories.count - 1
                onClicked: block.storyWanted(storyID)
            }
        }
    }
}
