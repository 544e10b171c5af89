import QtQuick
import TarnwickBrell.Controls

/// Where the columns of the table of releases are. "After" goes first, then what the service says,
/// then the time of the first sight.
QtObject {
    required property real width
    readonly property real start: Theme.gridPadding
    readonly property real inner: width - 2 * start
    readonly property real base: Theme.releasePlatform + Theme.releaseVersion + Theme.releaseBuild + Theme.releaseChannel

    readonly property bool hasSeen: inner >= base + Theme.releaseSeen
    readonly property bool hasTitle: inner >= base + Theme.releaseSeen + Theme.nameColumnLeast
    readonly property bool hasAfter: inner >= base + Theme.releaseSeen + Theme.releaseAfter + Theme.columnGap + Theme.nameColumnLeast

    readonly property real versionX: start + Theme.releasePlatform
    readonly property real buildX: versionX + Theme.releaseVersion
    readonly property real channelX: buildX + Theme.releaseBuild
    readonly property real afterX: channelX + Theme.releaseChannel
    readonly property real titleX: afterX + (hasAfter ? Theme.releaseAfter + Theme.space8 : 0)
    readonly property real seenX: start + inner - Theme.releaseSeen
    readonly property real titleWidth: seenX - titleX - Theme.space3
}
