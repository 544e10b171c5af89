import QtQuick
import TarnwickBrell.Controls

/// A row of the page of services. The table of an old file lies on the field's ground.
Item {
    id: row

    required property int index
    required property int kind
    required property string title
    required property string detail
    required property string warning
    required property string message
    required property string facts
    required property bool isUp
    required property int level
    required property string levelLabel
    required property list<int> days
    required property string share
    required property string last
    required property bool isOld
    required property bool isOpen
    required property string spokenText

    required property ServiceColumns columns
    required property list<string> dayNames
    property bool listFocused: false
    property bool isCurrent: false
    property int reading: -1
    property string readingText
    /// The day under the pointer.
    property int pointed: -1

    signal chosen
    signal activated

    readonly property color ground: isOld ? Theme.field : Theme.surface
    readonly property color ink: isOld ? Theme.text2 : Theme.text1

    implicitHeight: body.item ? (body.item as Item).implicitHeight : 0
    z: reading >= 0 ? 1 : 0
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText
    Accessible.ignored: spokenText === ""
    Accessible.description: readingText
    Accessible.focusable: true

    Rectangle {
        anchors.fill: parent
        color: row.ground
    }
    Loader {
        id: body

        /// In the order of StatusRowKind.
        readonly property list<string> files: ["StatusHeading.qml", "StatusProblemRow.qml", "StatusTableTitle.qml",
            "StatusColumnNames.qml", "StatusServiceRow.qml", "StatusFoldRow.qml"]

        width: parent.width
    }

    // By name, because Qt 6.4 can't load a bound component here.
    onKindChanged: body.setSource(body.files[kind], { row: row })
    Component.onCompleted: body.setSource(body.files[kind], { row: row })
}
