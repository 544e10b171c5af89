import QtQuick

/// A label of a story or a service. Outline says what it is, fill says how firm it is. On a
/// card that already has the soft fill it is `onSoft`: an outline in the colour of the mark.
Rectangle {
    id: badge

    enum Kind { Outline, Confirmed, OnRecord, Report, Rumor, Fresh, Issue, Outage, Maintenance }

    required property string text
    property int kind: Badge.Outline
    property bool onSoft: false

    readonly property color fill: [Theme.surface, Theme.greenSoft, Theme.blueSoft, Theme.reportSoft,
        Theme.amberSoft, Theme.accentSoft, Theme.amberSoft, Theme.redSoft, Theme.blueSoft][kind]
    readonly property color ink: [Theme.text2, Theme.green, Theme.blue, Theme.report, Theme.amber,
        Theme.accentText, Theme.amber, Theme.red, Theme.blue][kind]
    readonly property color outline: [Theme.border, Theme.greenMark, Theme.blueMark, Theme.edge,
        Theme.amberMark, Theme.accentLine, Theme.amberMark, Theme.redMark, Theme.blueMark][kind]
    readonly property bool outlined: onSoft || kind === Badge.Outline

    implicitWidth: label.implicitWidth + 2 * Theme.badgePadding
    implicitHeight: Theme.badge
    radius: Theme.radiusBadge
    color: outlined ? "transparent" : fill
    border.width: outlined ? Theme.line : 0
    border.color: outline
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    DeskText {
        id: label
        anchors.centerIn: parent
        type: DeskText.MetaMedium
        text: badge.text
        color: badge.ink
        Accessible.ignored: true
    }
}
