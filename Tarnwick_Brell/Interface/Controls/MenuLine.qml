import QtQuick
import QtQuick.Templates as T

/// Separates the groups of a menu.
T.MenuSeparator {
    implicitHeight: 2 * Theme.space1 + Theme.line
    verticalPadding: Theme.space1
    horizontalPadding: Theme.space2
    contentItem: Hairline {}
    Accessible.ignored: true
}
