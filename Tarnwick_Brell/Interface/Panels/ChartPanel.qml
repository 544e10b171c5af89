pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Apps by rank, with their moves; each opens its page in the store.
Item {
    id: panel

    required property ChartPanelModel content
    readonly property bool pale: content.state === PanelModel.Stale

    PanelList {
        id: rows
        anchors.fill: parent
        label: panel.content.title
        model: panel.content.rows

        delegate: PlainButton {
            id: row

            required property string rank
            required property string name
            required property string developer
            required property string change
            required property int move
            required property bool isNew
            required property string link
            required property string spokenText

            width: rows.width
            implicitHeight: Theme.softwareRow
            enabled: link
            opacity: 1
            text: spokenText
            Accessible.role: Accessible.Link
            onClicked: panel.content.openLink(link)
            onActiveFocusChanged: if (visualFocus) rows.scroll(Math.min(0, y - rows.contentY) + Math.max(0, y + height - rows.contentY - rows.height))

            background: Rectangle {
                color: row.down ? Theme.press : row.hovered ? Theme.hover : "transparent"

                Hairline {
                    anchors.bottom: parent.bottom
                    width: parent.width
                }
            }
            contentItem: Item {
                DeskText {
                    id: rank
                    anchors.verticalCenter: parent.verticalCenter
                    width: Theme.rankColumn
                    horizontalAlignment: Text.AlignRight
                    type: DeskText.SecondaryMedium
                    text: row.rank
                    color: Theme.text3
                    Accessible.ignored: true
                }
                TwoLineText {
                    anchors.left: rank.right
                    anchors.leftMargin: Theme.space3
                    anchors.right: end.left
                    anchors.rightMargin: Theme.space2
                    anchors.verticalCenter: parent.verticalCenter
                    first: row.name
                    second: row.developer
                    ink: panel.pale ? Theme.text2 : Theme.text1
                }
                Item {
                    id: end
                    anchors.right: parent.right
                    width: Theme.ageColumn
                    height: parent.height

                    Badge {
                        anchors.right: parent.right
                        anchors.verticalCenter: parent.verticalCenter
                        visible: row.isNew
                        kind: Badge.Fresh
                        text: qsTr("New")
                        Accessible.ignored: true
                    }
                    DeskText {
                        anchors.verticalCenter: parent.verticalCenter
                        width: parent.width
                        horizontalAlignment: Text.AlignRight
                        type: DeskText.SecondaryMedium
                        text: row.change
                        color: panel.pale ? Theme.text2
                             : row.move === PriceMove.Up ? Theme.green
                             : row.move === PriceMove.Down ? Theme.red : Theme.text2
                        Accessible.ignored: true
                    }
                }
            }

            FocusRing {
                control: row
                inside: true
            }
        }
    }
}
