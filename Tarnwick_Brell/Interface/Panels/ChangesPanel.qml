pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Lines about firmware or updates, under headings; a quiet second line gives the detail.
Item {
    id: panel

    required property ChangesPanelModel content
    readonly property bool pale: content.state === PanelModel.Stale

    PanelList {
        id: list
        anchors.fill: parent
        label: panel.content.label
        model: panel.content.rows

        delegate: Item {
            id: row

            required property string heading
            required property string title
            required property string detail
            required property string when
            required property string spokenText
            required property int index

            readonly property int headingHeight: heading ? Theme.tableHeader + (index > 0 ? Theme.space3 : 0) : 0

            width: list.width
            height: headingHeight + (detail ? Theme.softwareRow : Theme.tableRow)
            Accessible.role: Accessible.ListItem
            Accessible.name: spokenText

            DeskText {
                y: row.headingHeight - Theme.tableHeader
                width: parent.width
                visible: text
                type: DeskText.MetaStrong
                text: row.heading
                color: Theme.text3
                Accessible.role: Accessible.Heading
            }
            Item {
                id: middle
                y: row.headingHeight
                width: parent.width
                height: row.height - y

                TwoLineText {
                    anchors.verticalCenter: parent.verticalCenter
                    width: when.x - Theme.space2
                    first: row.title
                    second: row.detail
                    ink: panel.pale ? Theme.text2 : Theme.text1
                }
                DeskText {
                    id: when
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    width: Theme.releaseAgeColumn
                    horizontalAlignment: Text.AlignRight
                    type: DeskText.Meta
                    text: row.when
                    color: Theme.text3
                    Accessible.ignored: true
                }
            }
            Hairline {
                anchors.bottom: parent.bottom
                width: parent.width
            }
        }
    }
}
