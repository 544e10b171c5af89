import QtQuick
import TarnwickBrell.Controls

/// A story in a panel: outlet, sourcing and age above, the headline below, beside its picture.
StoryPanelRow {
    id: row

    required storyID
    required property string source
    required property string destination
    required property string kindLabel
    required property int sourcing
    required property string sourcingLabel
    required property string age
    required property string title
    required property string picture
    required property bool isRead
    required property bool isSaved

    topPadding: Theme.compactPaddingTop
    bottomPadding: Theme.compactPaddingBottom
    contentItem: Item {
        implicitHeight: meta.height + Theme.step2 + Math.max(headline.implicitHeight, thumbnail.visible ? thumbnail.height : 0)

        StoryMetaLine {
            id: meta

            width: parent.width
            source: row.source
            destination: row.destination
            kindLabel: row.kindLabel
            sourcing: row.sourcing
            sourcingLabel: row.sourcingLabel
            age: row.age
            isRead: row.isRead
            isSaved: row.isSaved
        }
        PanelTitle {
            id: headline

            anchors.top: meta.bottom
            anchors.topMargin: Theme.step2
            width: parent.width - (thumbnail.visible ? thumbnail.width + Theme.space3 : 0)
            text: row.title
            isRead: row.isRead
        }
        StoryPicture {
            id: thumbnail

            anchors.top: headline.top
            anchors.right: parent.right
            width: Theme.smallThumbnailWidth
            height: Theme.smallThumbnailHeight
            visible: row.picture !== "" && Theme.showsPictures && row.width >= Theme.smallThumbnailFrom
            picture: visible ? row.picture : ""
        }
    }
}
