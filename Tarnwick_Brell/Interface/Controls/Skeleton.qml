import QtQuick

/// A placeholder for text. `depth` is the row, from 0: lower rows are fainter.
Rectangle {
    property int depth: 0

    implicitHeight: Theme.space3
    radius: Theme.radiusBadge
    color: Theme.skeleton
    opacity: Math.max(0, 1 - depth * Theme.skeletonLoss)
    Accessible.ignored: true
}
