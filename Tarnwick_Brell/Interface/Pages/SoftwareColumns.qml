import QtQuick
import TarnwickBrell.Controls

/// Where the columns of the table of releases are. "After" goes first, then what the service says,
/// then the time of the first sight.
QtObject {
    required property real width
    readonly property real start: Theme.gridPadding
    readonly property real inner: width - 2 * start
    readonly property real base: PageSizes.releasePlatform + PageSizes.releaseVersion + PageSizes.releaseBuild + PageSizes.releaseChannel

    readonly property bool hasSeen: inner >= base + PageSizes.releaseSeen
    readonly property bool hasTitle: inner >= base + PageSizes.releaseSeen + PageSizes.nameColumnLeast
    readonly property bool hasAfter: inner >= base + PageSizes.releaseSeen + PageSizes.releaseAfter + PageSizes.columnGap + PageSizes.nameColumnLeast

    readonly property real versionX: start + PageSizes.releasePlatform
    readonly property real buildX: versionX + PageSizes.releaseVersion
    readonly property real channelX: buildX + PageSizes.releaseBuild
    readonly property real afterX: channelX + PageSizes.releaseChannel
    readonly property real titleX: afterX + (hasAfter ? PageSizes.releaseAfter + Theme.space8 : 0)
    readonly property real seenX: start + inner - PageSizes.releaseSeen
    readonly property real titleWidth: seenX - titleX - Theme.space3
}
