pragma ComponentBehavior: Bound

import QtQuick
import TarnwickBrell.Controls

/// Keys that are pressed together or one after the other.
Row {
    id: caps

    property list<string> keys

    spacing: Theme.space1

    Repeater {
        model: caps.keys

        KeyCap {
            required property string modelData

            // Rounded to whole pixels, so that right edges line up.
            width: Math.ceil(implicitWidth)
            text: modelData
        }
    }
}
