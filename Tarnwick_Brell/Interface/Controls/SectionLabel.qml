import QtQuick

/// Names the rows below it: a day, a month, a group. `detail` is a quiet fact at the right.
Item {
    id: label

    required property string text
    property string detail
    property int start: Theme.gridPadding
    property int end: Theme.gridPadding

    implicitHeight: Theme.sectionLabel
    Accessible.role: Accessible.Heading
    Accessible.name: detail ? text + ", " + detail : text

    DeskText {
        x: label.start
        width: fact.x - x - Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.MetaStrong
        text: label.text
        color: Theme.text2
        Accessible.ignored: true
    }
    DeskText {
        id: fact

        anchors.right: parent.right
        anchors.rightMargin: label.end
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Meta
        text: label.detail
        color: Theme.text3
        Accessible.ignored: true
    }
}
