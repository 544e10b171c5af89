import QtQuick
import TarnwickBrell.Controls

/// A day, or a release of that day.
Item {
    id: line

    required property int index
    required property bool isDay
    required property string platform
    required property string version
    required property bool isNew
    required property string build
    required property string channel
    required property bool isGeneral
    required property string after
    required property string title
    required property string seen
    required property string spokenText

    required property SoftwareColumns columns
    property bool listFocused: false
    property bool isCurrent: false
    property bool pale: false

    signal chosen
    signal opened
    signal copied

    readonly property color ink: pale ? Theme.text2 : Theme.text1

    implicitHeight: isDay ? Theme.sectionLabel : Theme.tableRow

    SectionLabel {
        width: parent.width
        visible: line.isDay
        text: line.platform
    }
    TableRow {
        width: parent.width
        visible: !line.isDay
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            DeskText {
                x: line.columns.start
                width: PageSizes.releasePlatform - Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.SecondaryMedium
                text: line.platform
                color: line.ink
                Accessible.ignored: true
            }
            DeskText {
                id: version

                x: line.columns.versionX
                width: Math.min(implicitWidth, PageSizes.releaseVersion - Theme.space2 - fresh.width)
                anchors.verticalCenter: parent.verticalCenter
                type: line.isNew ? DeskText.SecondaryStrong : DeskText.Secondary
                text: line.version
                color: line.ink
                Accessible.ignored: true
            }
            Badge {
                id: fresh

                anchors.left: version.right
                anchors.leftMargin: Theme.badgeGap
                anchors.verticalCenter: parent.verticalCenter
                width: visible ? implicitWidth : 0
                visible: line.isNew
                kind: Badge.Fresh
                text: qsTr("New")
                Accessible.ignored: true
            }
            DeskText {
                x: line.columns.buildX
                width: PageSizes.releaseBuild - Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Secondary
                text: line.build
                color: Theme.text2
                Accessible.ignored: true
            }
            DeskText {
                x: line.columns.channelX
                anchors.verticalCenter: parent.verticalCenter
                visible: line.isGeneral
                type: DeskText.Secondary
                text: line.channel
                color: Theme.text2
                Accessible.ignored: true
            }
            Badge {
                x: line.columns.channelX
                anchors.verticalCenter: parent.verticalCenter
                visible: !line.isGeneral && line.channel
                text: line.channel
                Accessible.ignored: true
            }
            DeskText {
                x: line.columns.afterX
                width: PageSizes.releaseAfter
                anchors.verticalCenter: parent.verticalCenter
                visible: line.columns.hasAfter
                horizontalAlignment: Text.AlignRight
                type: DeskText.Secondary
                text: line.after
                color: Theme.text2
                Accessible.ignored: true
            }
            DeskText {
                x: line.columns.titleX
                width: line.columns.titleWidth - (tools.visible ? tools.width : 0)
                anchors.verticalCenter: parent.verticalCenter
                visible: line.columns.hasTitle
                type: DeskText.Secondary
                text: line.title
                color: Theme.text2
                Accessible.ignored: true
            }
            Row {
                id: tools

                x: line.columns.seenX - width
                anchors.verticalCenter: parent.verticalCenter
                visible: line.isCurrent && line.columns.hasTitle

                IconButton {
                    symbol: "doc.on.doc"
                    text: qsTr("Copy")
                    key: qsTr("Ctrl C")
                    onClicked: line.copied()
                }
                IconButton {
                    symbol: "doc.text"
                    text: qsTr("Open the release notes")
                    key: qsTr("Enter")
                    onClicked: line.opened()
                }
            }
            DeskText {
                x: line.columns.seenX
                width: PageSizes.releaseSeen
                anchors.verticalCenter: parent.verticalCenter
                visible: line.columns.hasSeen
                horizontalAlignment: Text.AlignRight
                type: DeskText.Secondary
                text: line.seen
                color: Theme.text2
                Accessible.ignored: true
            }
        }
    }
}
