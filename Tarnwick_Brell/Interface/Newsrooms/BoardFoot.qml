pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The latest builds, and which newsroom comes next.
Item {
    id: foot

    required property BoardModel content

    implicitHeight: next.implicitHeight + Theme.space4

    Hairline {
        width: parent.width
    }
    DeskText {
        anchors.bottom: parent.bottom
        width: dots.x - Theme.space8
        type: DeskText.Meta
        text: foot.content.news
        color: Theme.text2
    }
    Row {
        id: dots

        anchors.right: next.left
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: next.verticalCenter
        spacing: Theme.badgeGap
        visible: foot.content.count > 1
        Accessible.ignored: true

        Repeater {
            model: foot.content.count

            Rectangle {
                required property int index
                readonly property bool isCurrent: index === foot.content.current

                width: isCurrent ? Theme.space6 : Theme.badgeGap
                height: Theme.badgeGap
                radius: height / 2
                color: isCurrent ? Theme.accent : Theme.text3
            }
        }
    }
    DeskText {
        id: next

        anchors.right: parent.right
        anchors.bottom: parent.bottom
        type: DeskText.Meta
        text: foot.content.next
        color: Theme.text3
    }
}
