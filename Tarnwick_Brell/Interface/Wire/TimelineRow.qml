import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls

/// A story of the reader's cluster in the order of publication.
T.ItemDelegate {
    id: row

    required property string time
    required property string outlet
    required property string title
    required property string lead
    required property string why
    required property bool isFirst
    required property bool isThis
    property bool isLast: false

    implicitHeight: Theme.tableRow
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("%1, %2: %3, %4").arg(time).arg(outlet).arg(title).arg(lead)
    Accessible.description: why
    Keys.onReturnPressed: clicked()

    Tip {
        text: row.why
        visible: row.why.length > 0 && (row.hovered || row.visualFocus)
    }

    background: Rectangle {
        radius: Theme.radiusBadge
        color: row.hovered && !row.isThis ? Theme.hover : "transparent"
    }
    contentItem: Item {
        DeskText {
            id: timeText

            anchors.verticalCenter: parent.verticalCenter
            width: Math.max(Theme.timelineTime, implicitWidth)
            type: DeskText.Meta
            color: Theme.text3
            text: row.time
        }
        Item {
            id: marks

            x: timeText.width
            width: Theme.timelineMark
            height: parent.height

            Hairline {
                vertical: true
                visible: !row.isLast
                anchors.horizontalCenter: parent.horizontalCenter
                y: parent.height / 2
                height: parent.height
                color: Theme.border
            }
            Hairline {
                vertical: true
                visible: !row.isFirst
                anchors.horizontalCenter: parent.horizontalCenter
                height: parent.height / 2
                color: Theme.border
            }
            Rectangle {
                anchors.centerIn: parent
                width: row.isFirst || row.isThis ? Theme.space2 : Theme.markSquare
                height: width
                radius: width / 2
                color: row.isThis ? Theme.accentText : row.isFirst ? Theme.text1 : Theme.surface
                border.width: row.isFirst || row.isThis ? 0 : Theme.markRing
                border.color: Theme.edge
            }
        }
        DeskText {
            id: outletText

            anchors.left: marks.right
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.timelineOutlet
            type: DeskText.SecondaryMedium
            color: row.isThis ? Theme.accentText : Theme.text1
            text: row.outlet
        }
        DeskText {
            anchors.left: outletText.right
            anchors.leftMargin: Theme.space2
            anchors.right: leadText.left
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            color: Theme.text2
            text: row.title
        }
        DeskText {
            id: leadText

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            type: row.isFirst ? DeskText.MetaStrong : DeskText.Meta
            color: row.isFirst ? Theme.text1 : Theme.text3
            text: row.lead
        }
    }
    Rectangle {
        anchors.fill: parent
        visible: row.visualFocus
        radius: Theme.radiusBadge
        color: "transparent"
        border.width: Theme.focusRing
        border.color: Theme.accent
    }
}
