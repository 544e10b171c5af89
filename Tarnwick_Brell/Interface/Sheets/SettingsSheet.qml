pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// All settings: sections and a search at the left, the settings at the right.
Sheet {
    id: sheet

    required property SettingsSheetModel content

    title: qsTr("Settings")
    flush: true
    implicitWidth: Theme.wideSheetWidth
    implicitHeight: Theme.settingsHeight
    onOpened: search.forceActiveFocus()

    Item {
        id: left

        width: Theme.settingsSections
        height: parent ? parent.height : 0

        // Follows the card's lower left corner.
        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusSheet
            color: Theme.recess
        }
        Rectangle {
            anchors.fill: parent
            anchors.bottomMargin: Theme.radiusSheet
            color: Theme.recess
        }
        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: Theme.radiusSheet
            color: Theme.recess
        }
        SearchField {
            id: search

            x: Theme.space3
            y: Theme.space3
            width: parent.width - 2 * x
            placeholderText: qsTr("Search settings")
            key: qsTr("Ctrl F")
            text: sheet.content.searched
            onTextEdited: sheet.content.searched = text
            Keys.onDownPressed: sections.forceActiveFocus()
        }
        ListView {
            id: sections

            anchors.top: search.bottom
            anchors.topMargin: Theme.space2
            anchors.bottom: hint.top
            x: Theme.space2
            width: parent.width - 2 * x
            clip: true
            activeFocusOnTab: true
            keyNavigationEnabled: true
            currentIndex: sheet.content.section
            model: sheet.content.sections
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Sections")
            onCurrentIndexChanged: if (activeFocus) {
                search.clear();
                sheet.content.section = currentIndex;
            }

            delegate: SettingSection {
                width: ListView.view.width
                isCurrent: index === sheet.content.section && !sheet.content.searched && !sheet.content.showsChanged
                keyboardHere: sections.activeFocus && ListView.isCurrentItem
                onClicked: {
                    search.clear();
                    sheet.content.section = index;
                }
            }
        }
        DeskText {
            id: hint

            anchors.bottom: showChanged.top
            x: Theme.space4
            width: parent.width - 2 * x
            type: DeskText.Meta
            lines: 3
            color: Theme.text3
            text: sheet.content.changedCount
        }
        LinkText {
            id: showChanged

            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.space3
            x: Theme.space4
            type: DeskText.MetaMedium
            text: qsTr("Show them")
            onClicked: sheet.content.showsChanged = true
        }
        Hairline {
            vertical: true
            anchors.right: parent.right
            height: parent.height
        }
    }
    SettingsPage {
        x: left.width
        width: parent ? parent.width - x : 0
        height: left.height
        content: sheet.content
    }
    Shortcut {
        enabled: sheet.opened
        sequence: "Ctrl+F"
        onActivated: search.forceActiveFocus()
    }
}
