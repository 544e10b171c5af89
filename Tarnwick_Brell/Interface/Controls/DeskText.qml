import QtQuick

/// Plain text in one of the window's sizes. `lines` is the most lines it takes.
/// In a panel a title has `lineHeight: Theme.panelLine`.
Text {
    enum Type {
        Meta, MetaMedium, MetaStrong, Secondary, SecondaryMedium, SecondaryStrong, Base, BaseMedium,
        BaseStrong, Heading, Reader, Message, Title, Figure
    }

    property int type: DeskText.Base
    property int lines: 1

    readonly property real lead: Theme.textTops[type] + (lineHeight - Theme.scaled(Theme.textLines[type])) / 2

    textFormat: Text.PlainText
    renderType: Text.NativeRendering
    font: Theme.fonts[type]
    lineHeightMode: Text.FixedHeight
    lineHeight: Theme.scaled(Theme.textLines[type])
    topPadding: lead
    bottomPadding: -lead
    color: Theme.text1
    elide: Text.ElideRight
    wrapMode: lines > 1 ? Text.Wrap : Text.NoWrap
    maximumLineCount: lines
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
