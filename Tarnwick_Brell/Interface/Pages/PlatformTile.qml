import QtQuick
import TarnwickBrell.Controls

/// What a platform runs now; a click filters the table below.
PlainButton {
    id: tile

    required property int index
    required property string platform
    required property string version
    required property string build
    required property string age
    required property bool isNew
    required property string betaVersion
    required property string betaBuild
    required property string betaAge
    required property string nextBeta
    required property bool isChosen
    required property string spokenText

    property bool pale: false

    readonly property var symbols: ({ iOS: "iphone.gen3", iPadOS: "square.grid.2x2", macOS: "macbook", watchOS: "applewatch", tvOS: "play", visionOS: "vision.pro" })
    readonly property color ink: pale ? Theme.text2 : Theme.text1

    implicitHeight: PageSizes.platformCardHeight
    text: spokenText
    checkable: false
    Accessible.checkable: true
    Accessible.checked: isChosen
    background: Rectangle {
        radius: Theme.radiusPanel
        color: tile.down ? Theme.press : tile.hovered ? Theme.hover : Theme.surface
        border.width: Theme.line
        border.color: tile.isChosen ? Theme.accentLine : Theme.hairline
    }
    contentItem: Item {
        Symbol {
            id: mark

            x: Theme.space3
            y: Theme.space3 + Theme.step2
            name: tile.symbols[tile.platform] ?? "hammer"
            size: Theme.iconInHeader
        }
        DeskText {
            id: name

            anchors.left: mark.right
            anchors.leftMargin: Theme.badgeGap
            anchors.verticalCenter: mark.verticalCenter
            width: fresh.x - x - Theme.space1
            type: DeskText.SecondaryStrong
            text: tile.platform
            Accessible.ignored: true
        }
        Badge {
            id: fresh

            anchors.right: parent.right
            anchors.rightMargin: Theme.space3
            anchors.verticalCenter: mark.verticalCenter
            width: visible ? implicitWidth : 0
            visible: tile.isNew
            kind: Badge.Fresh
            text: qsTr("New")
            Accessible.ignored: true
        }
        Column {
            x: Theme.space3
            y: mark.y + mark.height + Theme.space2
            width: parent.width - 2 * x

            DeskText {
                width: parent.width
                type: DeskText.Title
                text: tile.version
                color: tile.ink
                Accessible.ignored: true
            }
            TileLine {
                width: parent.width
                build: tile.build
                age: tile.age
            }
            Item {
                width: parent.width
                height: Theme.space4

                Hairline {
                    anchors.verticalCenter: parent.verticalCenter
                    width: parent.width
                }
            }
            DeskText {
                width: parent.width
                type: DeskText.BaseMedium
                text: tile.betaVersion
                color: tile.betaBuild ? tile.ink : Theme.text2
                Accessible.ignored: true
            }
            TileLine {
                width: parent.width
                build: tile.betaBuild
                age: tile.betaAge
            }
            DeskText {
                width: parent.width
                type: DeskText.Meta
                text: tile.nextBeta
                color: Theme.text3
                Accessible.ignored: true
            }
        }
    }

    FocusRing {
        control: tile
        around: Theme.radiusPanel
    }
}
