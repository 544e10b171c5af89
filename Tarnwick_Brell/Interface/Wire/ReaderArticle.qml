pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The text of the story's page.
Item {
    id: block

    required property ArticleModel article
    signal linkWanted(link: string)
    signal selected(text: string)

    readonly property alias selection: area

    visible: article.state !== ArticleModel.Idle
    implicitHeight: visible ? content.y + content.implicitHeight + Theme.space4 : 0

    Hairline {
        width: parent.width
    }
    Column {
        id: content

        y: Theme.space4
        width: parent.width
        spacing: Theme.space2

        DeskText {
            width: parent.width
            visible: text !== ""
            type: DeskText.MetaStrong
            color: Theme.text3
            text: block.article.title
            Accessible.role: Accessible.Heading
        }
        DeskText {
            width: parent.width
            visible: block.article.state === ArticleModel.Running
            type: DeskText.Secondary
            color: Theme.text3
            text: block.article.message
        }
        FailureBanner {
            width: parent.width
            visible: block.article.state !== ArticleModel.Running && block.article.message !== ""
            text: block.article.state === ArticleModel.Ready ? qsTr("The page could not be fetched again; this is the stored text.") : qsTr("The text of the page could not be fetched.")
            since: block.article.message
            onRetried: block.article.retry()
        }
        DeskText {
            width: parent.width
            visible: text !== ""
            lines: 3
            type: DeskText.Secondary
            color: Theme.text3
            text: block.article.notice
        }
        DeskText {
            width: parent.width
            visible: text !== ""
            lines: 100
            type: DeskText.Secondary
            text: block.article.changes
        }
        DeskText {
            width: parent.width
            visible: text !== ""
            lines: 5000
            type: DeskText.Reader
            text: block.article.text

            SelectableArea {
                id: area

                z: -1
                anchors.fill: parent
                target: parent
                ground: Theme.accentSoft
                onSelectedTextChanged: block.selected(selectedText)
            }
        }
        Repeater {
            model: block.article.links

            LinkText {
                required property string title
                required property string link

                width: content.width
                text: title
                onClicked: block.linkWanted(link)
            }
        }
    }
}
