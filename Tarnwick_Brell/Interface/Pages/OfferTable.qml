pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The offers of the catalogue. As space shrinks, the number of devices goes first, then the day of
/// posting.
FocusScope {
    id: table

    required property UpdatesPageModel content
    required property PageSplit split
    property bool pale: false

    readonly property int columnsLeast: Theme.gridPadding * 2 + PageSizes.offerPlatformColumn + PageSizes.offerVersionColumn
                                        + PageSizes.offerBuildColumn + PageSizes.offerExpiryColumn
    readonly property bool hasPosted: width >= columnsLeast + PageSizes.offerPostedColumn
    readonly property bool hasDevices: width >= columnsLeast + PageSizes.offerPostedColumn + PageSizes.offerDevicesColumn
    readonly property int versionX: Theme.gridPadding + PageSizes.offerPlatformColumn
    readonly property int buildX: versionX + PageSizes.offerVersionColumn
    readonly property int postedX: buildX + PageSizes.offerBuildColumn
    readonly property int expiresX: postedX + (hasPosted ? PageSizes.offerPostedColumn : 0)
    readonly property int devicesX: expiresX + PageSizes.offerExpiryColumn

    function step(by: int) {
        rows.step(by);
    }

    TableHeader {
        id: header

        width: parent.width

        ColumnName {
            x: Theme.gridPadding
            text: qsTr("Platform")
        }
        ColumnName {
            x: table.versionX
            text: qsTr("Version")
        }
        ColumnName {
            x: table.buildX
            text: qsTr("Build")
        }
        ColumnName {
            x: table.postedX
            visible: table.hasPosted
            text: qsTr("Posted")
        }
        ColumnName {
            x: table.expiresX
            text: qsTr("Expires")
        }
        ColumnName {
            x: table.devicesX
            width: PageSizes.offerDevicesColumn
            horizontalAlignment: Text.AlignRight
            visible: table.hasDevices
            text: qsTr("Devices")
        }
        PaneLink {
            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            split: table.split
            text: qsTr("Show what came and went")
        }
    }
    TableList {
        id: rows

        opens: false
        anchors.fill: parent
        anchors.topMargin: header.height
        label: qsTr("Updates that Apple offers")
        model: table.content.rows

        delegate: Column {
            id: entry

            required property string heading
            required property string headingFact
            required property string platform
            required property string version
            required property string build
            required property bool isNew
            required property string posted
            required property string expires
            required property bool expiresSoon
            required property string devices
            required property string spokenText
            required property int index

            width: rows.width

            SectionLabel {
                width: parent.width
                height: visible ? implicitHeight : 0
                visible: entry.heading
                text: entry.heading
                detail: entry.headingFact
            }
            TableRow {
                width: parent.width
                spokenText: entry.spokenText
                isCurrent: entry.index === rows.currentIndex
                listFocused: rows.activeFocus
                onChosen: {
                    rows.choose(entry.index);
                    rows.forceActiveFocus(Qt.MouseFocusReason);
                }

                contentItem: Item {
                    DeskText {
                        x: Theme.gridPadding
                        width: table.versionX - x - Theme.space2
                        anchors.verticalCenter: parent.verticalCenter
                        type: DeskText.SecondaryMedium
                        text: entry.platform
                        color: table.pale ? Theme.text2 : Theme.text1
                        Accessible.ignored: true
                    }
                    DeskText {
                        id: version
                        x: table.versionX
                        width: Math.min(implicitWidth, PageSizes.offerVersionColumn - Theme.space2)
                        anchors.verticalCenter: parent.verticalCenter
                        type: entry.isNew ? DeskText.SecondaryStrong : DeskText.Secondary
                        text: entry.version
                        color: table.pale ? Theme.text2 : Theme.text1
                        Accessible.ignored: true
                    }
                    Badge {
                        anchors.left: version.right
                        anchors.leftMargin: Theme.badgeGap
                        anchors.verticalCenter: parent.verticalCenter
                        visible: entry.isNew
                        kind: Badge.Fresh
                        text: qsTr("New")
                        Accessible.ignored: true
                    }
                    DeskText {
                        x: table.buildX
                        width: PageSizes.offerBuildColumn - Theme.space2
                        anchors.verticalCenter: parent.verticalCenter
                        type: DeskText.Secondary
                        text: entry.build
                        color: Theme.text2
                        Accessible.ignored: true
                    }
                    DeskText {
                        x: table.postedX
                        anchors.verticalCenter: parent.verticalCenter
                        visible: table.hasPosted
                        type: DeskText.Secondary
                        text: entry.posted
                        color: Theme.text2
                        Accessible.ignored: true
                    }
                    DeskText {
                        x: table.expiresX
                        anchors.verticalCenter: parent.verticalCenter
                        type: DeskText.Secondary
                        text: entry.expires
                        color: entry.expiresSoon && !table.pale ? Theme.amber : Theme.text3
                        Accessible.ignored: true
                    }
                    DeskText {
                        x: table.devicesX
                        width: PageSizes.offerDevicesColumn
                        horizontalAlignment: Text.AlignRight
                        anchors.verticalCenter: parent.verticalCenter
                        visible: table.hasDevices
                        type: DeskText.Secondary
                        text: entry.devices
                        color: Theme.text2
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
