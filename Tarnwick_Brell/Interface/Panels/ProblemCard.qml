import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// An ongoing problem.
Rectangle {
    id: card

    required property string service
    required property int level
    required property string levelLabel
    required property string message
    required property string duration
    required property string spokenText
    /// Without colour, for stale data.
    property bool pale: false

    implicitHeight: words.implicitHeight + 2 * Theme.space2
    radius: Theme.radiusControl
    color: pale ? Theme.field
         : level === ProblemLevel.Outage ? Theme.redSoft
         : level === ProblemLevel.Maintenance ? Theme.blueSoft : Theme.amberSoft
    Accessible.role: Accessible.AlertMessage
    Accessible.name: spokenText

    Column {
        id: words
        x: Theme.chipPadding
        y: Theme.space2
        width: parent.width - 2 * x
        spacing: Theme.step2

        Item {
            width: parent.width
            height: name.height

            Symbol {
                id: mark
                anchors.verticalCenter: parent.verticalCenter
                name: card.level === ProblemLevel.Maintenance ? "hammer" : "exclamationmark.triangle"
                size: Theme.iconInHeader
                color: card.pale ? Theme.text2
                     : card.level === ProblemLevel.Outage ? Theme.red
                     : card.level === ProblemLevel.Maintenance ? Theme.blue : Theme.amber
            }
            DeskText {
                id: name
                anchors.left: mark.right
                anchors.leftMargin: Theme.space2
                anchors.right: time.left
                anchors.rightMargin: Theme.space2
                type: DeskText.BaseStrong
                lineHeight: Theme.panelLine
                text: card.service
                color: card.pale ? Theme.text2 : Theme.text1
                Accessible.ignored: true
            }
            DeskText {
                id: time
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Meta
                text: card.duration
                color: Theme.text2
                Accessible.ignored: true
            }
        }
        DeskText {
            width: parent.width
            visible: text
            type: DeskText.Secondary
            lines: 2
            text: card.message ? card.message : card.levelLabel
            color: Theme.text2
            Accessible.ignored: true
        }
    }
}
