import QtQuick

/// What failed and since when, with a retry button. The last good data is shown below it.
Rectangle {
    id: band

    signal retried

    required property string text
    property string since
    property string action: qsTr("Retry")
    property bool retrying: false

    implicitHeight: Math.max(words.implicitHeight, retry.height) + 2 * Theme.space2
    radius: Theme.radiusControl
    color: Theme.redSoft
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
    Accessible.description: since

    Symbol {
        id: mark
        x: Theme.chipPadding
        anchors.verticalCenter: parent.verticalCenter
        name: "exclamationmark.triangle"
        size: Theme.iconInHeader
        color: Theme.red
    }
    Column {
        id: words
        anchors.left: mark.right
        anchors.leftMargin: Theme.space2
        anchors.right: retry.left
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter

        DeskText {
            width: parent.width
            type: DeskText.SecondaryMedium
            lines: 3
            text: band.text
        }
        DeskText {
            width: parent.width
            visible: band.since
            type: DeskText.Meta
            lines: 2
            text: band.since
            color: Theme.text2
        }
    }
    DeskButton {
        id: retry
        anchors.right: parent.right
        anchors.rightMargin: Theme.badgeGap
        anchors.verticalCenter: parent.verticalCenter
        look: DeskButton.Danger
        enabled: !band.retrying
        text: band.action
        onClicked: band.retried()
    }
}
