import QtQuick
import TarnwickBrell.Controls

/// A case, below the heading of the cases that are not followed where it is the first of them.
Item {
    id: line

    required property int index
    required property string heading
    required property string name
    required property string detail
    required property string when
    required property string fact
    required property bool canFollow
    required property bool isNew
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false

    signal chosen
    signal opened
    signal followed

    implicitHeight: group.height + PageSizes.logRow

    SectionLabel {
        id: group

        width: parent.width
        height: line.heading ? implicitHeight : 0
        visible: line.heading
        start: Theme.rowText
        text: line.heading
    }
    TableRow {
        y: group.height
        width: parent.width
        height: PageSizes.logRow
        start: Theme.rowText
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            UnreadDot {
                x: Theme.space3
                anchors.verticalCenter: name.verticalCenter
                visible: line.isNew
                Accessible.ignored: true
            }
            DeskText {
                id: name

                x: Theme.rowText
                y: Theme.space2
                width: when.x - x - Theme.space2
                type: line.isNew ? DeskText.BaseStrong : DeskText.Base
                text: line.name
                Accessible.ignored: true
            }
            DeskText {
                id: when

                x: parent.width - width - Theme.gridPadding
                anchors.verticalCenter: name.verticalCenter
                type: DeskText.Meta
                color: Theme.text3
                text: line.when
                Accessible.ignored: true
            }
            DeskText {
                x: name.x
                anchors.top: name.bottom
                width: (line.canFollow ? follow.x : fact.x) - x - Theme.space2
                type: DeskText.Meta
                color: Theme.text3
                text: line.detail
                Accessible.ignored: true
            }
            DeskText {
                id: fact

                x: parent.width - width - Theme.gridPadding
                anchors.top: when.bottom
                type: DeskText.MetaMedium
                color: Theme.accentText
                text: line.fact
                Accessible.ignored: true
            }
            LinkText {
                id: follow

                x: parent.width - width - Theme.gridPadding
                anchors.verticalCenter: parent.bottom
                anchors.verticalCenterOffset: -Theme.space4
                visible: line.canFollow
                text: qsTr("Follow")
                Accessible.name: qsTr("Follow %1").arg(line.name)
                onClicked: line.followed()
            }
        }
    }
}
