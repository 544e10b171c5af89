pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Builds, newest first; each opens its page. A narrow panel leaves out the build number.
Item {
    id: panel

    required property ReleasesPanelModel content
    readonly property bool pale: content.state === PanelModel.Stale

    PanelList {
        id: rows
        anchors.fill: parent
        label: qsTr("Releases")
        model: panel.content.rows

        delegate: PlainButton {
            id: row

            required property string title
            required property string build
            required property string age
            required property bool isBeta
            required property bool isNew
            required property string link
            required property string spokenText

            width: rows.width
            implicitHeight: Theme.tableRow
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
                    id: title
                    anchors.verticalCenter: parent.verticalCenter
                    width: Math.min(implicitWidth, build.x - (mark.visible ? mark.width + Theme.space2 : 0) - Theme.space2)
                    type: row.isBeta ? DeskText.Secondary : DeskText.SecondaryMedium
                    text: row.title
                    color: panel.pale ? Theme.text2 : Theme.text1
                    Accessible.ignored: true
                }
                Badge {
                    id: mark
                    anchors.left: title.right
                    anchors.leftMargin: Theme.space2
                    anchors.verticalCenter: parent.verticalCenter
                    visible: row.isNew
                    kind: Badge.Fresh
                    text: qsTr("New")
                    Accessible.ignored: true
                }
                DeskText {
                    id: build
                    anchors.right: age.left
                    anchors.verticalCenter: parent.verticalCenter
                    width: visible ? Theme.buildColumn : 0
                    visible: rows.width >= Theme.buildColumnFrom
                    type: DeskText.Meta
                    text: row.build
                    color: Theme.text3
                    Accessible.ignored: true
                }
                DeskText {
                    id: age
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    width: Theme.releaseAgeColumn
                    horizontalAlignment: Text.AlignRight
                    type: DeskText.Meta
                    text: row.age
                    color: Theme.text3
                    Accessible.ignored: true
                }
            }

            FocusRing {
                control: row
                inside: true
            }
        }
    }
}
