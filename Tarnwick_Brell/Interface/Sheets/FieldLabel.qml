import TarnwickBrell.Controls

/// The name of a field, above it.
DeskText {
    topPadding: look.lead + Theme.space2
    bottomPadding: -look.lead - Theme.step2
    type: DeskText.MetaMedium
    color: Theme.text2
    Accessible.ignored: true
}
