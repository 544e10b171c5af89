import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// An address that was tried on the way to a feed. One that was not tried can be.
PlainButton {
    id: line

    required property int index
    required property string address
    required property int outcome
    required property bool isUsed
    required property string result
    required property string duration

    readonly property bool isUntried: outcome === AttemptOutcome.Untried
    readonly property string symbol: ["clock", "arrow.right", "checkmark", "xmark", "circle"][outcome]
    readonly property color ink: outcome === AttemptOutcome.Failed ? Theme.red
                               : isUsed ? Theme.green : Theme.text3

    signal tried

    height: Theme.bar
    enabled: isUntried
    opacity: 1
    text: address + ", " + result
    tip: isUntried ? qsTr("Try this one") : ""
    onClicked: tried()
    contentItem: Item {
        Symbol {
            id: mark

            x: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            name: line.symbol
            size: Theme.iconInHeader
            color: line.ink
        }
        DeskText {
            anchors.left: mark.right
            anchors.leftMargin: Theme.space2
            width: Math.min(implicitWidth, outcomeText.x - x - Theme.space2)
            anchors.verticalCenter: parent.verticalCenter
            type: line.isUsed ? DeskText.SecondaryMedium : DeskText.Secondary
            color: line.isUsed ? Theme.text1 : Theme.text2
            elide: Text.ElideMiddle
            text: line.address
            Accessible.ignored: true
        }
        DeskText {
            id: outcomeText

            anchors.right: parent.right
            anchors.rightMargin: Theme.space3 + Theme.attemptTime
            width: Math.min(implicitWidth, parent.width / 2)
            anchors.verticalCenter: parent.verticalCenter
            type: line.isUsed ? DeskText.SecondaryMedium : DeskText.Secondary
            color: line.ink
            text: line.result
            Accessible.ignored: true
        }
        DeskText {
            anchors.right: parent.right
            anchors.rightMargin: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            color: Theme.text3
            text: line.duration
            Accessible.ignored: true
        }
    }
    background: Rectangle {
        color: line.hovered && line.isUntried ? Theme.hover : "transparent"
        radius: Theme.radiusControl

        Hairline {
            x: mark.x
            width: parent.width - 2 * x
            visible: line.index > 0
        }
    }

    FocusRing {
        control: line
        inside: true
    }
}
