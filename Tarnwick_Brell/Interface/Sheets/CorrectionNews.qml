pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Whether the story tells the same news as others.
Column {
    id: news

    required property CorrectionSheetModel content

    spacing: Theme.space2

    DeskText {
        width: parent.width
        lines: 2
        type: DeskText.Secondary
        color: Theme.text3
        text: news.content.othersText
    }
    DeskButton {
        enabled: news.content.canSplit
        symbol: "scissors"
        text: qsTr("Not the same news as these")
        key: qsTr("Shift N")
        onClicked: news.content.split()
    }
    FieldLabel {
        text: qsTr("The same news as…")
    }
    SearchField {
        width: parent.width
        placeholderText: qsTr("Words of the other headline")
        text: news.content.words
        onTextEdited: news.content.words = text
        Keys.onDownPressed: matches.forceActiveFocus()
        Keys.onReturnPressed: matches.forceActiveFocus()
    }
    TableList {
        id: matches

        width: parent.width
        height: Theme.correctionMatches
        label: qsTr("Stories that may tell the same news")
        model: news.content.matches
        onOpened: row => news.content.join(row)
        onActiveFocusChanged: if (activeFocus && currentIndex < 0 && count > 0)
            choose(0)

        delegate: CorrectionMatchLine {
            width: matches.width
            listFocused: matches.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                matches.forceActiveFocus();
                matches.choose(index);
            }
            onOpened: news.content.join(index)
        }

        DeskText {
            anchors.centerIn: parent
            visible: matches.count === 0
            type: DeskText.Secondary
            color: Theme.text3
            text: news.content.words ? qsTr("No other headline has these words.") : qsTr("Enter joins the chosen story with this one.")
        }
    }
}
