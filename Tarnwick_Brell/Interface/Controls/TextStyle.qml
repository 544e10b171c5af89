import QtQuick

/// A text size and its line height, both at the given scale.
QtObject {
    id: style

    required property int size
    required property int line
    required property real scale
    property int weight: Font.Normal
    property real spacing: 0

    readonly property font font: Qt.font({
        pixelSize: Math.round(size * scale),
        weight: weight,
        letterSpacing: spacing * scale
    })
    readonly property int lineHeight: Math.round(line * scale)
    readonly property FontMetrics metrics: FontMetrics { font: style.font }
    /// Centres the text in its line, on a whole pixel; Text with a fixed line height would leave it
    /// at the top.
    readonly property real lead: {
        const ascent = Math.round(metrics.ascent);
        const spare = lineHeight - ascent - Math.round(metrics.descent);
        return Math.floor(spare / 2) + ascent - metrics.ascent;
    }
}
