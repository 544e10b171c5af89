import QtQuick

/// The shadow of an item; place it behind that item, with the same size. Its image grows with the
/// item up to the size from which it can be stretched between its corners.
BorderImage {
    id: shadow

    property Item caster: parent as Item

    readonly property int reach: Theme.shadowExtent
    readonly property int most: 2 * (Theme.shadowExtent + Theme.shadowCorner) + 1
    readonly property int drawnWidth: Math.min(Math.round(caster.width), most)
    readonly property int drawnHeight: Math.min(Math.round(caster.height), most)

    anchors.fill: caster
    anchors.margins: -reach
    border.left: Math.floor(drawnWidth / 2) + reach
    border.right: border.left
    border.top: Math.floor(drawnHeight / 2) + reach
    border.bottom: border.top
    source: drawnWidth > 0 && drawnHeight > 0
            ? "image://shadow/" + drawnWidth + "x" + drawnHeight : ""
    Accessible.ignored: true
}
