import QtQuick

/// Says in one sentence that there is nothing, with a helpful fact, one action and at most one
/// quiet second action. `page` is for a whole page, such as the first run.
Item {
    id: empty

    signal acted
    signal secondActed

    property string symbol
    required property string text
    property string hint
    property string action
    property string secondAction
    property bool page: false

    implicitWidth: Theme.messageMost
    implicitHeight: column.implicitHeight
    Accessible.role: Accessible.Grouping
    Accessible.name: text

    Column {
        id: column
        anchors.centerIn: parent
        width: Math.min(parent.width, empty.page ? Theme.noticeMost : Theme.messageMost)
        spacing: Theme.space1

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: empty.symbol
            name: empty.symbol
            size: Theme.iconInMessage
        }
        Item {
            width: parent.width
            height: Theme.space1
            visible: empty.symbol
        }
        DeskText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            type: empty.page ? DeskText.Message : DeskText.BaseMedium
            lines: 4
            text: empty.text
        }
        DeskText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            visible: empty.hint
            type: DeskText.Secondary
            lines: 4
            text: empty.hint
            color: Theme.text3
        }
        Item {
            width: parent.width
            height: Theme.space2
            visible: actions.visible
        }
        Row {
            id: actions
            anchors.horizontalCenter: parent.horizontalCenter
            visible: empty.action || empty.secondAction
            spacing: Theme.space2

            DeskButton {
                visible: empty.action
                look: empty.page ? DeskButton.Primary : DeskButton.Plain
                text: empty.action
                onClicked: empty.acted()
            }
            DeskButton {
                visible: empty.secondAction
                look: DeskButton.Quiet
                text: empty.secondAction
                onClicked: empty.secondActed()
            }
        }
    }
}
