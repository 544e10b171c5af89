pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T

/// A choice of a few values. It shows `currentIndex` and does not change it: the handler of
/// `activated` does. `small`, for panels, is drawn lower with the same touch area. `raised`, for
/// sheets, has a track that stands out from their ground in the dark.
T.Control {
    id: segmented

    signal activated(index: int)

    property list<string> model
    property int currentIndex: 0
    property bool small: false
    property bool raised: false
    /// The subject of the choice, for screen readers.
    property string label

    /// The margin above and below the drawn track.
    readonly property int spare: small ? (Theme.control - Theme.smallSegmented) / 2 : 0

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.control
    horizontalPadding: Theme.step2
    focusPolicy: Qt.TabFocus
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.Grouping
    Accessible.name: label
    Keys.onLeftPressed: step(mirrored ? 1 : -1)
    Keys.onRightPressed: step(mirrored ? -1 : 1)

    function step(by: int) {
        const next = currentIndex + by;
        if (next >= 0 && next < model.length)
            activated(next);
    }

    contentItem: Row {
        Repeater {
            model: segmented.model

            T.AbstractButton {
                id: segment

                required property string modelData
                required property int index
                readonly property bool current: index === segmented.currentIndex

                implicitWidth: words.implicitWidth + 2 * (segmented.small ? Theme.space2 : Theme.chipPadding)
                height: segmented.height
                topInset: Theme.step2 + segmented.spare
                bottomInset: topInset
                hoverEnabled: true
                focusPolicy: Qt.NoFocus
                onClicked: if (!current) segmented.activated(index)
                contentItem: Item {
                    DeskText {
                        id: words
                        anchors.centerIn: parent
                        type: segmented.small ? DeskText.MetaMedium : DeskText.SecondaryMedium
                        text: segment.modelData
                        color: segment.current || segment.hovered ? Theme.text1 : Theme.text2
                        Accessible.ignored: true
                    }
                }
                background: Rectangle {
                    radius: Theme.radiusBadge
                    color: segment.current ? Theme.surface : segment.down ? Theme.press : "transparent"
                    border.width: segment.current ? Theme.line : 0
                    border.color: Theme.border
                }
                Accessible.role: Accessible.RadioButton
                Accessible.name: modelData
                Accessible.checkable: true
                Accessible.checked: current
            }
        }
    }
    background: Item {
        Rectangle {
            y: segmented.spare
            width: parent.width
            height: parent.height - 2 * y
            radius: Theme.radiusControl
            color: segmented.raised ? Theme.press : Theme.field

            FocusRing { control: segmented }
        }
    }
}
