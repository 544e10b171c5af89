pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The selected story with all details.
FocusScope {
    id: pane

    required property ReaderModel reader
    required property StoryActions storyActions
    required property ActionModel actions
    required property StoryKeeping keeping

    signal storyWanted(storyID: string)
    signal linkWanted(link: string)
    signal placeWanted(key: string)

    /// Scrolls by a page; false when the end was already visible.
    function pageDown(): bool {
        const most = Math.max(0, body.contentHeight - body.height);
        if (!reader.hasStory || body.contentY >= most - 1)
            return false;
        body.contentY = Math.min(most, body.contentY + body.height * 0.85);
        return true;
    }

    /// Scrolls down to the trace while keeping its beginning visible, and follows as it grows
    /// unless the user has scrolled since.
    function revealTrace() {
        if (!trace.visible)
            return;
        const top = content.y + trace.y;
        const end = top + trace.height + Theme.readerPadding;
        body.contentY = Math.max(body.contentY, Math.min(top, end - body.height));
        revealedAt = body.contentY;
    }

    /// The same for the list of who else ran it.
    function revealCoverage() {
        if (!coverage.visible)
            return;
        const top = content.y + coverage.y;
        body.contentY = Math.max(body.contentY, Math.min(top, top + coverage.height + Theme.readerPadding - body.height));
    }

    property real revealedAt: -1

    function takeSelection(text: string) {
        keeping.selection = text;
    }
    function clearSelection() {
        excerptSelection.clear();
        article.selection.clear();
    }
    /// Scrolls to the story's note and begins to write.
    function writeNote() {
        const top = content.y + kept.y;
        const most = Math.max(0, body.contentHeight - body.height);
        body.contentY = Math.min(most, Math.max(body.contentY, top + kept.height + Theme.readerPadding - body.height));
        kept.focusNote();
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }

    Item {
        id: header

        width: parent.width
        height: Theme.listHeader

        DeskButton {
            x: Theme.readerPadding
            anchors.verticalCenter: parent.verticalCenter
            visible: pane.reader.hasStory
            enabled: pane.reader.link !== ""
            symbol: "arrow.up.right.square"
            text: qsTr("Open")
            key: pane.actions.keyText(DeskAction.OpenInBrowser)
            onClicked: pane.storyActions.openInBrowser()
        }
        Row {
            anchors.right: parent.right
            anchors.rightMargin: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            visible: pane.reader.hasStory
            spacing: Theme.space1

            IconButton {
                symbol: pane.reader.isSaved ? "bookmark.fill" : "bookmark"
                text: pane.reader.isSaved ? qsTr("Saved; remove the mark") : qsTr("Save")
                key: pane.actions.keyText(DeskAction.ToggleSaved)
                checked: pane.reader.isSaved
                onClicked: pane.storyActions.toggleSaved()
            }
            IconButton {
                symbol: pane.reader.isRead ? "circle" : "circle.inset.filled"
                text: pane.reader.isRead ? qsTr("Mark as unread") : qsTr("Mark as read")
                key: pane.actions.keyText(DeskAction.ToggleRead)
                onClicked: pane.storyActions.toggleRead()
            }
            IconButton {
                symbol: "link"
                text: qsTr("Copy link")
                key: pane.actions.keyText(DeskAction.CopyLink)
                onClicked: pane.storyActions.copyLink()
            }
            IconButton {
                symbol: "quote.opening"
                text: qsTr("Copy citation")
                key: pane.actions.keyText(DeskAction.CopyCitation)
                onClicked: pane.storyActions.copyCitation()
            }
            IconButton {
                symbol: "newspaper"
                text: qsTr("Find who else ran it")
                key: pane.actions.keyText(DeskAction.FindCoverage)
                onClicked: pane.actions.trigger(DeskAction.FindCoverage)
            }
            IconButton {
                symbol: "arrow.triangle.branch"
                text: qsTr("Trace where the story started")
                key: pane.actions.keyText(DeskAction.TraceStory)
                enabled: pane.reader.link !== ""
                onClicked: pane.storyActions.traceStory()
            }
        }
        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }

    Flickable {
        id: body

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: pane.reader.hasStory
        clip: true
        contentHeight: content.implicitHeight + 2 * Theme.readerPadding
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.Pane
        Accessible.name: pane.reader.title

        T.ScrollBar.vertical: ThinScrollBar {}

        Column {
            id: content

            x: Theme.readerPadding
            y: Theme.space5
            width: Math.min(Theme.readerText, body.width - 2 * Theme.readerPadding)

            Item {
                width: parent.width
                height: Theme.badge

                Row {
                    width: parent.width - when.width - Theme.space3
                    spacing: Theme.badgeGap

                    DeskText {
                        type: DeskText.SecondaryStrong
                        text: pane.reader.source
                        width: Math.min(implicitWidth, parent.width)
                    }
                    Symbol {
                        visible: pane.reader.destination !== ""
                        anchors.verticalCenter: parent.verticalCenter
                        name: "arrow.right"
                        size: Theme.iconInMeta
                    }
                    DeskText {
                        visible: pane.reader.destination !== ""
                        type: DeskText.SecondaryStrong
                        text: pane.reader.destination
                        width: Math.min(implicitWidth, Math.max(0, parent.width - x))
                    }
                    DeskText {
                        visible: pane.reader.author !== ""
                        type: DeskText.Secondary
                        color: Theme.text2
                        text: pane.reader.author
                        width: Math.min(implicitWidth, Math.max(0, parent.width - x))
                    }
                }
                DeskText {
                    id: when

                    anchors.right: parent.right
                    type: DeskText.Secondary
                    color: Theme.text3
                    text: pane.reader.published
                }
            }
            Item {
                width: Theme.line
                height: Theme.space2
            }
            DeskText {
                width: parent.width
                type: DeskText.Title
                lines: 8
                text: pane.reader.title
                Accessible.role: Accessible.Heading
            }
            Repeater {
                model: pane.reader.wordings

                DeskText {
                    required property string until
                    required property string title

                    width: content.width
                    type: DeskText.Secondary
                    color: Theme.text3
                    lines: 3
                    text: qsTr("%1: “%2”").arg(until).arg(title)
                }
            }
            Item {
                width: Theme.line
                height: Theme.space3
            }
            ReaderReason {
                width: parent.width
                visible: pane.reader.sourcingReason !== ""
                reason: pane.reader.correctedText || pane.reader.sourcingReason
                action: qsTr("Correct…")
                onActed: pane.actions.trigger(DeskAction.CorrectStory)

                SourcingBadge {
                    sourcing: pane.reader.sourcing
                    text: pane.reader.sourcingLabel
                }
            }
            ReaderReason {
                width: parent.width
                visible: pane.reader.kindReason !== ""
                reason: pane.reader.kindReason

                Badge {
                    visible: text !== ""
                    text: pane.reader.kindLabel
                }
            }
            Item {
                width: Theme.line
                height: Theme.space4
            }
            StoryPicture {
                id: picture

                width: parent.width
                height: Theme.readerPicture
                visible: pane.reader.picture !== "" && Theme.showsPictures
                picture: visible ? pane.reader.picture : ""
                radius: Theme.radiusPanel
            }
            Item {
                width: Theme.line
                height: Theme.space4
                visible: picture.visible
            }
            DeskText {
                width: parent.width
                visible: text !== ""
                type: DeskText.Reader
                lines: 100
                text: pane.reader.text

                SelectableArea {
                    id: excerptSelection

                    z: -1
                    anchors.fill: parent
                    target: parent
                    ground: Theme.accentSoft
                    onSelectedTextChanged: {
                        if (selectedText)
                            article.selection.clear();
                        pane.takeSelection(selectedText || article.selection.selectedText);
                    }
                }
            }
            DeskText {
                width: parent.width
                visible: pane.reader.text === ""
                type: DeskText.Secondary
                color: Theme.text3
                text: qsTr("The feed has no excerpt of this story.")
            }
            Item {
                width: Theme.line
                height: Theme.space4
            }
            ReaderArticle {
                id: article

                width: parent.width
                article: pane.reader.article
                onSelected: text => {
                    if (text)
                        excerptSelection.clear();
                    pane.takeSelection(text || excerptSelection.selectedText);
                }
                onLinkWanted: link => pane.linkWanted(link)
            }
            ReaderKept {
                id: kept

                width: parent.width
                keeping: pane.keeping
                onPlaceWanted: key => pane.placeWanted(key)
            }
            ReaderCredits {
                width: parent.width
                credits: pane.reader.credits
                onLinkWanted: link => pane.linkWanted(link)
            }
            ReaderCoverage {
                id: coverage

                width: parent.width
                coverage: pane.reader.coverage
                onStoryWanted: storyID => pane.storyWanted(storyID)
                onLinkWanted: link => pane.linkWanted(link)
            }
            ReaderTimeline {
                width: parent.width
                visible: reader.timelineTitle !== "" && !coverage.visible
                reader: pane.reader
                onStoryWanted: storyID => pane.storyWanted(storyID)
            }
            ReaderTrace {
                id: trace

                width: parent.width
                trace: pane.reader.trace
                onStoryWanted: storyID => pane.storyWanted(storyID)
                onLinkWanted: link => pane.linkWanted(link)
            }
        }
    }

    Timer {
        id: reveal

        interval: Theme.nextTurn
        onTriggered: pane.revealTrace()
    }
    Timer {
        id: writing

        interval: Theme.nextTurn
        onTriggered: pane.writeNote()
    }
    Connections {
        target: pane.keeping

        function onTypingWanted() {
            writing.restart();
        }
        function onSelectionDone() {
            pane.clearSelection();
        }
    }
    Timer {
        id: revealCovered

        interval: Theme.nextTurn
        onTriggered: pane.revealCoverage()
    }
    Connections {
        target: pane.reader.coverage

        function onStateChanged() {
            revealCovered.start();
        }
    }
    Connections {
        target: pane.reader.trace

        function onStateChanged() {
            const asked = pane.reader.trace.state === TraceModel.Running;
            if (asked || body.contentY === pane.revealedAt)
                reveal.start();
        }
    }
    Connections {
        target: pane.reader

        function onStoryChanged() {
            body.contentY = 0;
            pane.revealedAt = -1;
        }
    }

    ReaderSelectionBar {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space4
        width: Math.min(parent.width, content.width + 2 * Theme.readerPadding) - 2 * Theme.space4
        visible: pane.reader.hasStory && selection !== ""
        selection: pane.keeping.selection
        actions: pane.actions
        onCleared: pane.clearSelection()
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.readerPadding
        visible: !pane.reader.hasStory
        symbol: "newspaper"
        text: qsTr("No story is selected.")
        hint: qsTr("j and k move through the list, Enter opens a story in the browser, ? shows all keys.")
    }
}
