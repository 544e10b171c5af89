pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// Whom the story credits.
Item {
    id: block

    required property QtObject credits
    signal linkWanted(link: string)

    visible: names.count > 0
    implicitHeight: visible ? flow.implicitHeight + Theme.space4 : 0

    DeskText {
        id: heading

        y: (Theme.control - height) / 2
        type: DeskText.MetaStrong
        color: Theme.text3
        text: qsTr("Credits")
    }
    Flow {
        id: flow

        anchors.left: heading.right
        anchors.leftMargin: Theme.space4
        anchors.right: parent.right
        spacing: Theme.space2

        Repeater {
            id: names

            model: block.credits

            Row {
                id: credit

                required property string name
                required property string link
                required property string detail

                spacing: Theme.badgeGap

                LinkText {
                    visible: credit.link !== ""
                    text: credit.name
                    onClicked: block.linkWanted(credit.link)
                }
                DeskText {
                    visible: credit.link === ""
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.SecondaryMedium
                    text: credit.name
                }
                DeskText {
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.Secondary
                    color: Theme.text2
                    text: credit.detail
                }
            }
        }
    }
}
