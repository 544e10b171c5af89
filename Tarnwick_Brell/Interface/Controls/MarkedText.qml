pragma ComponentBehavior: Bound
import QtQuick

/// One line of text whose matches lie on a ground of their own; cut at the right.
Item {
    id: line

    /// A list of records with `text` and `isMatch`.
    property var parts
    property int type: DeskText.Base
    property color ink: Theme.text1

    implicitWidth: pieces.implicitWidth
    implicitHeight: Math.max(pieces.implicitHeight, Theme.badge)
    clip: true

    Row {
        id: pieces

        Repeater {
            model: line.parts

            DeskText {
                id: piece

                required property var modelData

                leftPadding: modelData.isMatch ? Theme.step1 : 0
                rightPadding: leftPadding
                width: Math.max(0, Math.min(implicitWidth, line.width - x))
                type: line.type
                color: line.ink
                text: modelData.text
                Accessible.ignored: true

                Rectangle {
                    z: -1
                    anchors.fill: parent
                    visible: piece.modelData.isMatch
                    radius: Theme.radiusBar
                    color: Theme.match
                }
            }
        }
    }
}
