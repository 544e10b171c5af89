import QtQuick
import TarnwickBrell.Controls

/// A release or a beta: when, and what it is called.
TableRow {
    id: line

    required property int index
    required property string date
    required property string title
    required property bool isRelease

    contentItem: Item {
        DeskText {
            x: Theme.gridPadding
            width: PageSizes.timelineDate
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            color: Theme.text3
            text: line.date
            Accessible.ignored: true
        }
        DeskText {
            x: Theme.gridPadding + PageSizes.timelineDate
            width: parent.width - x - Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            type: line.isRelease ? DeskText.SecondaryStrong : DeskText.Secondary
            text: line.title
            Accessible.ignored: true
        }
    }
}
