pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// A kind of panel in the picker; the current one shows what its panel would say now.
Item {
    id: row

    required property int index
    required property string title
    required property string description
    required property string symbol
    required property string reason
    required property bool isAdded
    property bool current: false
    property PanelModel preview: null

    signal picked
    signal chosen
    signal lifted(at: point)
    signal pulled(at: point)
    signal dropped
    signal cancelled

    readonly property bool hasPreview: preview !== null
    readonly property bool hasContent: hasPreview && (preview.state === PanelModel.Ready || preview.state === PanelModel.Stale)

    implicitHeight: lines.height + (hasPreview ? Theme.pickerPreview + Theme.space2 : 0)
    Accessible.role: Accessible.ListItem
    Accessible.name: reason !== "" ? qsTr("%1, %2").arg(title).arg(reason) : isAdded ? qsTr("%1, added").arg(title) : title
    Accessible.description: description
    Accessible.selected: current
    Accessible.onPressAction: chosen()

    Rectangle {
        x: Theme.space2
        width: parent.width - 2 * x
        height: lines.height
        radius: Theme.radiusControl
        color: row.current ? Theme.accentSoft : pointer.containsMouse ? Theme.hover : "transparent"
    }
    Item {
        id: lines

        width: parent.width
        height: words.height + Theme.space2

        Symbol {
            x: Theme.space5
            y: Theme.space1 + Theme.step2
            name: row.symbol
            color: row.current ? Theme.accentText : Theme.text2
        }
        Column {
            id: words

            x: Theme.space8 + Theme.space4
            y: Theme.space1
            width: parent.width - x - Theme.space5

            DeskText {
                width: parent.width - end.width - Theme.space2
                type: DeskText.BaseMedium
                color: row.reason !== "" ? Theme.text3 : Theme.text1
                text: row.title
                Accessible.ignored: true
            }
            DeskText {
                width: parent.width
                type: DeskText.Meta
                lines: 2
                color: Theme.text3
                text: row.description
                Accessible.ignored: true
            }
            DeskText {
                width: parent.width
                visible: row.reason !== ""
                type: DeskText.Meta
                lines: 2
                color: Theme.amber
                text: row.reason
                Accessible.ignored: true
            }
        }
        Row {
            id: end

            anchors.right: words.right
            y: Theme.space1 + Theme.step2
            spacing: Theme.space2

            DeskText {
                visible: row.isAdded
                type: DeskText.Meta
                color: Theme.text3
                text: qsTr("Added")
                Accessible.ignored: true
            }
            KeyCap {
                visible: row.current
                text: qsTr("Enter")
            }
        }
    }
    MouseArea {
        id: pointer

        property bool isLifted: false

        anchors.fill: lines
        hoverEnabled: true
        preventStealing: isLifted
        onPressed: row.picked()
        onClicked: row.chosen()
        onPositionChanged: mouse => {
            if (!pressed)
                return;
            const at = mapToItem(null, mouse.x, mouse.y);
            if (isLifted) {
                row.pulled(at);
            } else if (mouse.x < 0) {
                isLifted = true;
                row.lifted(at);
            }
        }
        onReleased: {
            if (isLifted)
                row.dropped();
            isLifted = false;
        }
        onCanceled: {
            if (isLifted)
                row.cancelled();
            isLifted = false;
        }
    }
    Rectangle {
        x: words.x
        y: lines.height
        width: words.width
        height: Theme.pickerPreview
        visible: row.hasPreview
        radius: Theme.radiusPanel
        color: Theme.surface
        border.width: Theme.line
        border.color: Theme.hairline

        Item {
            anchors.fill: parent
            anchors.margins: Theme.space2
            clip: true
            enabled: false

            PanelBody {
                anchors.fill: parent
                visible: row.hasContent
                content: row.preview
            }
            DeskText {
                anchors.fill: parent
                visible: !row.hasContent
                type: DeskText.Meta
                lines: 3
                color: Theme.text3
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                text: row.preview ? row.preview.message !== "" ? row.preview.message : qsTr("Loading…") : ""
            }
        }
    }
}
