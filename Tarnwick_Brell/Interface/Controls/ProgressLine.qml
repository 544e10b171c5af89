import QtQuick

/// The progress of a pass, from 0 to 1, on the lower edge of a bar.
Item {
    id: progress

    property real value: 0
    property bool running: false

    implicitHeight: Theme.progress
    visible: running
    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("%1 percent done").arg(Math.round(value * 100))

    Rectangle {
        width: parent.width * Math.min(1, Math.max(0, progress.value))
        height: parent.height
        color: Theme.accent
    }
}
