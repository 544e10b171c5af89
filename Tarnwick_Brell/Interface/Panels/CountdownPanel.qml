pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The days until the next event, then the other events.
Item {
    id: panel

    required property CountdownPanelModel content
    readonly property bool pale: content.state === PanelModel.Stale
    readonly property color ink: pale ? Theme.text2 : Theme.text1
    readonly property bool hasDates: width >= Theme.dateColumnFrom

    Column {
        id: next
        width: parent.width
        visible: panel.content.hasNext
        height: visible ? implicitHeight : 0

        DeskText {
            width: parent.width
            type: DeskText.Figure
            text: panel.content.days
            color: panel.ink
        }
        Item {
            width: parent.width
            height: Theme.step3
        }
        DeskText {
            width: parent.width
            type: DeskText.BaseStrong
            lineHeight: Theme.panelLine
            lines: 2
            text: panel.content.title
            color: panel.ink
        }
        DeskText {
            width: parent.width
            type: DeskText.Secondary
            lines: 2
            text: panel.content.time
            color: Theme.text3
        }
        Item {
            width: parent.width
            height: Theme.space5

            Hairline {
                anchors.verticalCenter: parent.verticalCenter
                width: parent.width
                visible: rows.count > 0
            }
        }
    }

    PanelList {
        id: rows
        anchors.top: next.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        label: qsTr("Other dates")
        model: panel.content.rows

        delegate: Item {
            id: row

            required property string title
            required property string badge
            required property string date
            required property string days
            required property bool isReleased
            required property string spokenText

            width: rows.width
            height: Theme.countdownRow
            Accessible.role: Accessible.ListItem
            Accessible.name: spokenText

            DeskText {
                id: name
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, date.x - Theme.space2 - (mark.visible ? mark.width + Theme.space2 : 0))
                type: DeskText.Secondary
                text: row.title
                color: panel.ink
                Accessible.ignored: true
            }
            Badge {
                id: mark
                anchors.left: name.right
                anchors.leftMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                visible: row.badge && panel.hasDates
                text: row.badge
                Accessible.ignored: true
            }
            TextMetrics {
                id: measure

                font: date.font
                text: row.date
            }
            DeskText {
                id: date
                anchors.right: end.left
                anchors.verticalCenter: parent.verticalCenter
                // Measured apart: elided text asks for no more than its own width.
                width: panel.hasDates ? Math.min(Math.ceil(measure.advanceWidth), Theme.dateColumnMost) : 0
                visible: panel.hasDates
                type: DeskText.Meta
                text: row.date
                color: Theme.text3
                Accessible.ignored: true
            }
            Item {
                id: end
                anchors.right: parent.right
                width: Theme.daysColumn
                height: parent.height

                Symbol {
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    visible: row.isReleased
                    name: "checkmark"
                    size: Theme.iconInMeta
                    color: panel.pale ? Theme.text3 : Theme.green
                }
                DeskText {
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    visible: !row.isReleased
                    type: DeskText.SecondaryMedium
                    text: row.days
                    color: panel.ink
                    Accessible.ignored: true
                }
            }
        }
    }
}
