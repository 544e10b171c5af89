import TarnwickBrell.Controls

/// A headline in a panel, semibold while the story is unread.
DeskText {
    property bool isRead: false

    type: isRead ? DeskText.Base : DeskText.BaseStrong
    lineHeight: Theme.panelLine
    lines: 2
    color: isRead ? Theme.text2 : Theme.text1
}
