import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What a page has in the toolbar beside its title: a switch and chips, then its filter field, and at
/// the right the age of its data, a refresh button and the page's own buttons. Where room is short
/// the age goes first, then the field shrinks. `XPageBar.qml` derives from it for an XPageModel that
/// has a bar.
FocusScope {
    id: bar

    required property PageModel page
    default property alias filters: filterRow.data
    property alias buttons: buttonRow.data
    property string fieldText
    property string fieldHint
    property bool hasRefresh: true

    signal fieldEdited(text: string)
    signal leftForPage

    /// Ctrl+F.
    function search() {
        if (!field.visible)
            return;
        field.forceActiveFocus();
        field.selectAll();
    }

    readonly property real spare: width - filterRow.width - endRow.width

    OverflowRow {
        width: endRow.x - Theme.space2
        height: parent.height

        Row {
            id: filterRow

            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.space2
            visible: width > 0
        }
        SearchField {
            id: field

            anchors.verticalCenter: parent.verticalCenter
            width: Math.max(PageSizes.barFieldLeast, Math.min(Theme.barFieldWidth, bar.spare - 2 * Theme.space2))
            visible: bar.fieldHint !== ""
            placeholderText: bar.fieldHint
            text: bar.fieldText
            onTextEdited: bar.fieldEdited(text)
            onEscaped: bar.leftForPage()
            Keys.onDownPressed: bar.leftForPage()
            Keys.onReturnPressed: bar.leftForPage()
        }
    }
    Row {
        id: endRow

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        DeskText {
            anchors.verticalCenter: parent.verticalCenter
            visible: bar.width - filterRow.width - buttonRow.width - refresh.width - implicitWidth
                     > Theme.barFieldWidth + 5 * Theme.space2
            type: DeskText.Meta
            color: Theme.text3
            text: bar.page.fact
        }
        IconButton {
            id: refresh

            visible: bar.hasRefresh
            symbol: "arrow.clockwise"
            text: bar.page.fact ? qsTr("Refresh this page, %1").arg(bar.page.fact) : qsTr("Refresh this page")
            onClicked: bar.page.retry()
        }
        Row {
            id: buttonRow

            spacing: Theme.space2
        }
    }
}
