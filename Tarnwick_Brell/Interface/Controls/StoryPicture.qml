import QtQuick

/// A picture of a story, or the icon of an app. The place has its size before the picture is there,
/// and keeps it when the picture can't be had.
Item {
    id: place

    required property string picture
    property int radius: Theme.radiusBadge
    property int askedWidth: 0
    property int askedHeight: 0

    function ask() {
        askedHeight = height;
        askedWidth = width;
    }

    Accessible.ignored: true
    Component.onCompleted: {
        ask();
        Mirror.flip(image);
    }
    onWidthChanged: resized.restart()

    // While a pane is resized, the picture that is there is stretched.
    Timer {
        id: resized

        interval: Theme.scrollRest
        onTriggered: place.ask()
    }
    Rectangle {
        anchors.fill: parent
        radius: place.radius
        color: Theme.skeleton
    }
    Symbol {
        anchors.centerIn: parent
        visible: image.status === Image.Ready && !image.isThere
        name: "photo"
        color: Theme.edge
    }
    Image {
        id: image

        /// Else it is a single pixel.
        readonly property bool isThere: implicitWidth > 1

        anchors.fill: parent
        visible: isThere
        asynchronous: true
        fillMode: Image.PreserveAspectCrop
        sourceSize.width: place.askedWidth
        sourceSize.height: place.askedHeight
        source: place.picture && place.askedWidth > 0 ? "image://picture/" + place.radius / place.askedWidth + "/" + place.picture : ""
    }
}
