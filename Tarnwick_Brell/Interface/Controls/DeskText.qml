import QtQuick

/// Plain text in one of the window's sizes. `lines` is the greatest number of lines. Titles in
/// panels set `lineHeight: Theme.panelLine`.
Text {
    enum Type {
        Meta, MetaMedium, MetaStrong, Secondary, SecondaryMedium, SecondaryStrong, Base, BaseMedium,
        BaseStrong, Heading, Reader, Message, Title, Figure, Countdown
    }

    property int type: DeskText.Base
    property int lines: 1

    readonly property TextStyle look: Theme.textStyles[type]

    textFormat: Text.PlainText
    renderType: Text.NativeRendering
    font: look.font
    lineHeightMode: Text.FixedHeight
    lineHeight: look.lineHeight
    topPadding: look.lead + Math.round((lineHeight - look.lineHeight) / 2)
    bottomPadding: -topPadding
    color: Theme.text1
    elide: Text.ElideRight
    wrapMode: lines > 1 ? Text.Wrap : Text.NoWrap
    maximumLineCount: lines
    Accessible.role: Accessible.StaticText
    Component.onCompleted: Mirror.flipText(this)
    Accessible.name: text
    Accessible.ignored: text === ""
}
