pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Versions and betas, a row per platform. A narrow panel shows the New mark in place of the date,
/// a narrower one only versions and builds.
Item {
    id: panel

    required property SoftwarePanelModel content
    readonly property bool pale: content.state === PanelModel.Stale
    readonly property color ink: pale ? Theme.text2 : Theme.text1
    readonly property bool isWide: width >= Theme.softwareWideFrom
    readonly property bool hasBetas: width >= Theme.softwareBetasFrom

    PanelList {
        id: rows
        anchors.fill: parent
        label: qsTr("Systems")
        model: panel.content.rows

        delegate: Item {
            id: row

            required property string platform
            required property string version
            required property string build
            required property string betaVersion
            required property string betaBuild
            required property bool hasBeta
            required property string date
            required property bool isNew
            required property string spokenText
            required property int index

            readonly property real cell: (width - Theme.platformColumn - end.width) / (panel.hasBetas ? 2 : 1)

            width: rows.width
            height: Theme.softwareRow
            Accessible.role: Accessible.ListItem
            Accessible.name: spokenText

            Hairline {
                width: parent.width
                visible: row.index > 0
            }
            DeskText {
                anchors.verticalCenter: parent.verticalCenter
                width: Theme.platformColumn - Theme.space1
                type: DeskText.SecondaryMedium
                text: row.platform
                color: panel.ink
                Accessible.ignored: true
            }
            TwoLineText {
                x: Theme.platformColumn
                anchors.verticalCenter: parent.verticalCenter
                width: row.cell - Theme.space1
                first: row.version
                second: row.build
                ink: panel.ink
            }
            TwoLineText {
                x: Theme.platformColumn + row.cell
                anchors.verticalCenter: parent.verticalCenter
                width: row.cell - Theme.space1
                visible: panel.hasBetas
                first: row.betaVersion
                second: row.betaBuild
                ink: row.hasBeta ? panel.ink : Theme.text3
            }
            Item {
                id: end
                anchors.right: parent.right
                width: panel.isWide ? 2 * Theme.ageColumn : panel.hasBetas ? Theme.ageColumn : 0
                visible: panel.hasBetas
                height: parent.height

                Badge {
                    anchors.right: parent.right
                    anchors.rightMargin: panel.isWide ? Theme.ageColumn + Theme.space2 : 0
                    anchors.verticalCenter: parent.verticalCenter
                    visible: row.isNew
                    kind: Badge.Fresh
                    text: qsTr("New")
                    Accessible.ignored: true
                }
                DeskText {
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    width: Math.min(implicitWidth, parent.width)
                    visible: panel.isWide || !row.isNew
                    type: DeskText.Meta
                    text: row.date
                    color: Theme.text3
                    Accessible.ignored: true
                }
            }
        }
    }
}
