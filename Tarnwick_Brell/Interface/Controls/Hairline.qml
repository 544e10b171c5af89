import QtQuick

/// A separator. The parent sets its length.
Rectangle {
    property bool vertical: false

    implicitWidth: Theme.line
    implicitHeight: Theme.line
    width: vertical ? Theme.line : undefined
    height: vertical ? undefined : Theme.line
    color: Theme.hairline
}
