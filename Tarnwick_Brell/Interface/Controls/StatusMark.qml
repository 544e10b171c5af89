import QtQuick

/// The state of a source or service, by shape as well as colour, centred in a box of fixed width.
/// `text` is for screen readers.
Item {
    id: mark

    enum State { Fresh, Unchanged, Failing, Never, Up, Issue, Outage, Maintenance }

    required property int status
    property string text
    property int box: Theme.markBox

    readonly property bool square: status === StatusMark.Failing || status === StatusMark.Issue
                                   || status === StatusMark.Outage
    readonly property bool ring: status === StatusMark.Never || status === StatusMark.Maintenance
    readonly property color ink: {
        switch (status) {
        case StatusMark.Fresh: case StatusMark.Up: return Theme.greenMark;
        case StatusMark.Failing: case StatusMark.Outage: return Theme.redMark;
        case StatusMark.Issue: return Theme.amberMark;
        case StatusMark.Maintenance: return Theme.blueMark;
        default: return Theme.edge;
        }
    }

    implicitWidth: box
    implicitHeight: Theme.markBox
    Accessible.role: Accessible.Indicator
    Accessible.name: text

    Rectangle {
        anchors.centerIn: parent
        width: mark.square || mark.ring ? Theme.markSquare : Theme.markCircle
        height: width
        rotation: mark.square ? 45 : 0
        radius: mark.square ? Theme.line : width / 2
        antialiasing: true
        color: mark.ring ? "transparent" : mark.ink
        border.width: mark.ring ? Theme.markRing : 0
        border.color: mark.ink
    }
}
