pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The builds above the signing matrix, as far as they are in sight.
Item {
    id: header

    required property SigningPageModel content
    required property PageSplit split
    required property int cellsX
    required property int first
    required property int columnsShown

    signal scrolled(by: int)

    implicitHeight: PageSizes.signingHeader

    ColumnName {
        x: Theme.gridPadding
        text: qsTr("Device")
    }
    IconButton {
        id: newer

        anchors.right: older.left
        anchors.verticalCenter: parent.verticalCenter
        visible: older.visible
        enabled: header.first > 0
        symbol: "chevron.left"
        text: qsTr("Newer builds")
        onClicked: header.scrolled(-1)
    }
    IconButton {
        id: older

        x: header.cellsX - width - Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        visible: header.content.columnCount > header.columnsShown
        enabled: header.first + header.columnsShown < header.content.columnCount
        symbol: "chevron.right"
        text: qsTr("Older builds")
        onClicked: header.scrolled(1)
    }
    ListView {
        id: builds

        x: header.cellsX
        width: header.columnsShown * PageSizes.signingColumn
        height: parent.height
        orientation: ListView.Horizontal
        interactive: false
        clip: true
        contentX: originX + header.first * PageSizes.signingColumn
        model: header.content.columns
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Builds")

        delegate: Column {
            id: build

            required property string version
            required property string released
            required property bool isSigned
            required property string build

            width: PageSizes.signingColumn
            topPadding: Theme.step3
            Accessible.role: Accessible.ColumnHeader
            Accessible.name: qsTr("%1, build %2, %3").arg(build.version).arg(build.build).arg(build.released)

            DeskText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                type: build.isSigned ? DeskText.SecondaryStrong : DeskText.Secondary
                text: build.version
                color: build.isSigned ? Theme.text1 : Theme.text2
                Accessible.ignored: true
            }
            DeskText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                type: DeskText.Meta
                text: build.build
                color: Theme.text3
                Accessible.ignored: true
            }
            DeskText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                type: DeskText.Meta
                text: build.released
                color: Theme.text3
                Accessible.ignored: true
            }
        }
    }
    PaneLink {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space1
        anchors.verticalCenter: parent.verticalCenter
        split: header.split
        text: qsTr("Show the changes")
    }
    Hairline {
        anchors.bottom: parent.bottom
        x: Theme.gridPadding
        width: parent.width - 2 * x
    }
}
