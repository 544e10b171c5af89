pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// A text of which words were removed, which are struck out, and others added, which are underlined.
/// Each word is an item: decorated text of several lines is drawn with its lines in wrong places.
Flow {
    id: flow

    /// A list of records with `text`, `isRemoved` and `isAdded`.
    required property var words
    property color color: Theme.text1

    Accessible.ignored: true

    Repeater {
        model: flow.words

        DeskText {
            id: word

            required property var modelData
            readonly property bool isMarked: modelData.isRemoved || modelData.isAdded

            // The space belongs to the word, so that the ground of several has no gaps.
            width: Math.min(implicitWidth, flow.width)
            type: DeskText.Reader
            color: modelData.isRemoved ? Theme.red : modelData.isAdded ? Theme.green : flow.color
            text: modelData.text + "\u00a0"
            Accessible.ignored: true

            Rectangle {
                z: -1
                anchors.fill: parent
                visible: word.isMarked
                color: word.modelData.isRemoved ? Theme.redSoft : Theme.greenSoft
            }
            Rectangle {
                y: Math.round(word.modelData.isRemoved ? parent.height * 0.55 : parent.height - 2 * height)
                width: parent.width
                height: Theme.line
                visible: word.isMarked
                color: word.color
            }
        }
    }
}
