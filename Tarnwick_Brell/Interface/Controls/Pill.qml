import QtQuick

/// Announces new stories in the header of their list and shows them when clicked.
PlainButton {
    id: pill

    property bool shown: false

    opacity: shown ? 1 : 0
    visible: opacity > 0
    enabled: shown
    horizontalPadding: Theme.space3
    contentItem: Row {
        spacing: Theme.badgeGap

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "arrow.up"
            size: Theme.iconInHeader
            color: Theme.textOnAccent
        }
        DeskText {
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.SecondaryStrong
            text: pill.text
            color: Theme.textOnAccent
            Accessible.ignored: true
        }
    }
    background: Rectangle {
        implicitHeight: Theme.control
        radius: height / 2
        color: pill.down ? Theme.accentPress : pill.hovered ? Theme.accentHover : Theme.accent
    }

    Behavior on opacity {
        NumberAnimation { duration: Theme.fade; easing.type: Easing.OutQuad }
    }
    FocusRing {
        control: pill
        around: pill.height / 2
    }
}
