pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The last stories of the open source, and its options.
Column {
    id: news

    required property SourcesPageModel content

    SectionLabel {
        width: parent.width
        start: 0
        end: 0
        text: qsTr("Last stories")
    }
    Repeater {
        id: stories

        // The last few.
        model: news.content.lastStories

        PlainButton {
            id: story

            required property string id
            required property string title
            required property string age
            required property bool isRead

            width: news.width
            height: Theme.tableRow
            text: qsTr("%1, %2").arg(title).arg(age)
            onClicked: news.content.openStory(id)
            contentItem: Item {
                DeskText {
                    width: age.x - Theme.space2
                    anchors.verticalCenter: parent.verticalCenter
                    type: story.isRead ? DeskText.Secondary : DeskText.SecondaryStrong
                    color: story.isRead ? Theme.text2 : Theme.text1
                    text: story.title
                    Accessible.ignored: true
                }
                DeskText {
                    id: age

                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.Meta
                    color: Theme.text3
                    text: story.age
                    Accessible.ignored: true
                }
            }
            background: Rectangle {
                color: story.hovered ? Theme.hover : "transparent"

                Hairline {
                    anchors.bottom: parent.bottom
                    width: parent.width
                }
            }

            FocusRing {
                control: story
                inside: true
            }
        }
    }
    DeskText {
        width: parent.width
        visible: stories.count === 0
        type: DeskText.Secondary
        color: Theme.text3
        text: qsTr("The library has no story of it.")
    }
    LinkText {
        visible: stories.count > 0
        text: qsTr("Show all its stories")
        onClicked: news.content.performOnOpen(DeskAction.ShowSourceStories)
    }
    Flow {
        width: parent.width
        topPadding: Theme.space2
        spacing: Theme.space4

        DeskSwitch {
            id: apple

            neutral: true
            text: qsTr("Only Apple")
            checked: news.content.detail.onlyApple
            Accessible.description: appleTip.text
            onToggled: {
                news.content.performOnOpen(DeskAction.ToggleOnlyApple);
                checked = Qt.binding(() => news.content.detail.onlyApple);
            }

            Tip {
                id: appleTip

                visible: apple.hovered
                text: qsTr("Keep only its stories about Apple, from the next fetch on")
            }
        }
        DeskSwitch {
            id: notInAll

            neutral: true
            text: qsTr("Not in All")
            checked: news.content.detail.notInAll
            Accessible.description: allTip.text
            onToggled: {
                news.content.performOnOpen(DeskAction.ToggleNotInAll);
                checked = Qt.binding(() => news.content.detail.notInAll);
            }

            Tip {
                id: allTip

                visible: notInAll.hovered
                text: qsTr("Leave its stories out of the lists of all and of unread stories")
            }
        }
        DeskButton {
            id: interval

            symbol: "chevron.up.chevron.down"
            text: news.content.detail.intervals[news.content.detail.interval] ?? ""
            onClicked: intervals.popup(interval, 0, interval.height)
            Accessible.role: Accessible.ButtonMenu
            Accessible.name: qsTr("How often it is fetched: %1").arg(text)

            DeskMenu {
                id: intervals

                Repeater {
                    model: news.content.detail.intervals

                    DeskMenuItem {
                        required property int index
                        required property string modelData

                        text: modelData
                        checkable: true
                        checked: index === news.content.detail.interval
                        onTriggered: news.content.setInterval(index)
                    }
                }
            }
        }
    }
    Connections {
        target: news.content

        function onIntervalsWanted() {
            intervals.popup(interval, 0, interval.height);
        }
    }
}
