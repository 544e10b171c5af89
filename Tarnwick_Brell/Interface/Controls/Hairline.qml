import QtQuick

/// A separator. Its length comes from whoever places it.
Rectangle {
    property bool vertical: false

    implicitWidth: Theme.line
    implicitHeight: Theme.line
    width: vertical ? Theme.line : undefined
    height: vertical ? undefined : Theme.line
    color: Theme.hairline
}
