import QtQuick

/// A label of a story or a service. An outlined badge names its kind, a filled one its sourcing.
/// `softGround` is for cards that already have the soft fill: an outline in the mark's colour.
Rectangle {
    id: badge

    enum Kind { Outline, Confirmed, OnRecord, Report, Rumor, Fresh, Issue, Outage, Maintenance }

    required property string text
    property int kind: Badge.Outline
    property bool softGround: false

    readonly property color fill: {
        switch (kind) {
        case Badge.Confirmed: return Theme.greenSoft;
        case Badge.OnRecord: case Badge.Maintenance: return Theme.blueSoft;
        case Badge.Report: return Theme.reportSoft;
        case Badge.Rumor: case Badge.Issue: return Theme.amberSoft;
        case Badge.Fresh: return Theme.accentSoft;
        case Badge.Outage: return Theme.redSoft;
        default: return "transparent";
        }
    }
    readonly property color ink: {
        switch (kind) {
        case Badge.Confirmed: return Theme.green;
        case Badge.OnRecord: case Badge.Maintenance: return Theme.blue;
        case Badge.Report: return Theme.report;
        case Badge.Rumor: case Badge.Issue: return Theme.amber;
        case Badge.Fresh: return Theme.accentText;
        case Badge.Outage: return Theme.red;
        default: return Theme.text2;
        }
    }
    readonly property color outline: {
        switch (kind) {
        case Badge.Confirmed: return Theme.greenMark;
        case Badge.OnRecord: case Badge.Maintenance: return Theme.blueMark;
        case Badge.Report: return Theme.edge;
        case Badge.Rumor: case Badge.Issue: return Theme.amberMark;
        case Badge.Fresh: return Theme.accentLine;
        case Badge.Outage: return Theme.redMark;
        default: return Theme.border;
        }
    }
    readonly property bool outlined: softGround || kind === Badge.Outline

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
