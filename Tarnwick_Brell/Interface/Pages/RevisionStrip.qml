pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A page's revisions on a line of time. The two that are compared stand out, the stretch between
/// them too; a return to an earlier text is hollow. A click chooses the later one, with Shift the
/// earlier one. For the keyboard and screen readers there are the chips below.
Item {
    id: strip

    required property PagesPageModel content
    readonly property real span: width - PageSizes.revisionPoint

    /// Where a point's centre lies.
    function centre(at: real): real {
        return PageSizes.revisionPoint / 2 + at * span;
    }

    implicitHeight: PageSizes.revisionStrip
    Accessible.ignored: true

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: Theme.line
        color: Theme.border
    }
    Repeater {
        id: points

        model: strip.content.points

        Item {
            id: point

            required property int index
            required property double at
            required property bool isReturn
            required property string name
            readonly property bool isCompared: index === strip.content.earlier || index === strip.content.later
            readonly property bool isBetween: index < strip.content.earlier && index > strip.content.later

            x: strip.centre(at) - width / 2
            width: PageSizes.revisionPoint + 2 * Theme.space1
            height: strip.height
            z: isCompared ? 2 : 1

            Rectangle {
                anchors.centerIn: parent
                width: PageSizes.revisionPoint
                height: width
                radius: width / 2
                color: point.isReturn ? Theme.surface : point.isCompared || point.isBetween ? Theme.accent : Theme.text3
                border.width: point.isReturn ? Theme.step2 : 0
                border.color: point.isCompared ? Theme.accent : Theme.text3
            }
            HoverHandler {
                id: hover
            }
            TapHandler {
                acceptedModifiers: Qt.NoModifier
                onTapped: strip.content.later = point.index
            }
            TapHandler {
                acceptedModifiers: Qt.ShiftModifier
                onTapped: strip.content.earlier = point.index
            }
            Tip {
                text: point.name
                visible: hover.hovered
            }
        }
    }
    Rectangle {
        readonly property Item earlier: pointAt(strip.content.earlier)
        readonly property Item later: pointAt(strip.content.later)

        function pointAt(place: int): Item {
            // Reads the count, so that it is evaluated again when the points change.
            return place >= 0 && place < points.count ? points.itemAt(place) as Item : null;
        }

        visible: earlier && later
        x: earlier ? earlier.x + earlier.width / 2 : 0
        width: earlier && later ? later.x + later.width / 2 - x : 0
        anchors.verticalCenter: parent.verticalCenter
        height: Theme.step2
        color: Theme.accent
    }
}
