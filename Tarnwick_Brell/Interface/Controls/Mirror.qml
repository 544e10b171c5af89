pragma Singleton
import QtQuick
import TarnwickBrell.Controls

/// For a language that runs from right to left the window's root mirrors everything, and what must
/// stay legible mirrors itself back. In other languages these functions do nothing.
QtObject {
    readonly property bool isOn: Mirroring.isOn
    readonly property Component scale: Component {
        Scale {
            required property Item item

            origin.x: item.width / 2
            xScale: -1
        }
    }

    /// Mirrors the item around its own middle.
    function flip(item: Item) {
        if (isOn)
            Mirroring.transform(item, scale.createObject(item, { item: item }));
    }
    /// The same for a symbol, unless it shows a direction.
    function flipSymbol(symbol: Item, name: string) {
        if (isOn && !/left|right|forward|backward|arrow|list|quote/.test(name))
            flip(symbol);
    }
    /// The same for a text, which begins at the other end then.
    function flipText(text: Text) {
        if (!isOn)
            return;
        flip(text);
        // Text that runs from right to left itself is at the right already.
        if (text.horizontalAlignment !== Text.AlignHCenter && !Mirroring.isRightToLeft(text.text))
            text.horizontalAlignment = text.horizontalAlignment === Text.AlignRight ? Text.AlignLeft : Text.AlignRight;
    }
}
