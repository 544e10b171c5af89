import QtQuick

/// The icon of that name in one colour; a name that has no icon shows the fallback.
Image {
    property string name
    property color color: Theme.text2
    property int size: Theme.icon

    width: size
    height: size
    // Qt asks an image provider for this size times the device's pixel ratio.
    sourceSize.width: size
    sourceSize.height: size
    source: name ? "image://symbol/" + name + "/" + color.toString().slice(1) : ""
    Accessible.ignored: true
    Component.onCompleted: Mirror.flipSymbol(this, name)
}
