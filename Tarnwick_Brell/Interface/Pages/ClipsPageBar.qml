import QtQuick
import TarnwickBrell.Controls

KeptPageBar {
    fieldHint: qsTr("Search clips")
}
