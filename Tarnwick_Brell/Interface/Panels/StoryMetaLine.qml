import QtQuick
import TarnwickBrell.Controls

/// Outlet, kind, sourcing and age of a story. When space is short the names are elided, never a
/// badge or the age.
Item {
    id: meta

    property string source
    property string destination
    property string kindLabel
    required property int sourcing
    property string sourcingLabel
    property string age
    property bool isRead: false
    property bool isSaved: false

    implicitHeight: Theme.badge

    UnreadDot {
        id: dot
        anchors.verticalCenter: parent.verticalCenter
        visible: !meta.isRead
    }
    Row {
        id: names
        x: meta.isRead ? 0 : dot.width + Theme.badgeGap
        width: Math.max(0, badges.x - Theme.space2 - x)
        spacing: Theme.badgeGap

        DeskText {
            width: Math.min(implicitWidth, Math.max(0, names.width - to.reserved))
            type: DeskText.MetaMedium
            text: meta.source
            color: Theme.text2
        }
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: to.visible
            name: "arrow.right"
            size: Theme.iconInMeta
            color: Theme.text3
        }
        DeskText {
            id: to
            readonly property real reserved: visible ? Math.min(implicitWidth, names.width / 2) + Theme.iconInMeta + 2 * Theme.badgeGap : 0
            visible: meta.destination
            width: Math.min(implicitWidth, Math.max(0, names.width - x))
            type: DeskText.MetaMedium
            text: meta.destination
            color: Theme.text2
        }
    }
    Row {
        id: badges
        anchors.right: ageText.left
        spacing: Theme.badgeGap

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: meta.isSaved
            name: "bookmark.fill"
            size: Theme.iconInMeta
        }
        Badge {
            visible: meta.kindLabel
            text: meta.kindLabel
        }
        SourcingBadge {
            sourcing: meta.sourcing
            text: meta.sourcingLabel
        }
    }
    DeskText {
        id: ageText
        anchors.right: parent.right
        width: Math.max(Theme.ageColumn, implicitWidth + Theme.badgeGap)
        horizontalAlignment: Text.AlignRight
        type: DeskText.Meta
        text: meta.age
        color: Theme.text3
    }
}
