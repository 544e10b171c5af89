pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The settings of a section, or those that were searched for, and what the section says.
Item {
    id: page

    required property SettingsSheetModel content

    DeskText {
        id: heading

        x: Theme.space6
        width: parent.width - 2 * x
        height: Theme.listHeader
        verticalAlignment: Text.AlignVCenter
        type: DeskText.Heading
        text: page.content.title
        Accessible.role: Accessible.Heading
    }
    Row {
        id: work

        anchors.bottom: parent.bottom
        x: heading.x
        height: visible ? implicitHeight : 0
        visible: page.content.isLibrary
        topPadding: Theme.space3
        bottomPadding: Theme.space6
        spacing: Theme.space2

        DeskButton {
            enabled: !page.content.isLibraryBusy
            text: qsTr("Check the library")
            onClicked: page.content.checkLibrary()
        }
        DeskButton {
            enabled: !page.content.isLibraryBusy
            text: qsTr("Back up now")
            onClicked: page.content.backUpLibrary()
        }
        DeskButton {
            visible: page.content.isLibraryBusy
            text: qsTr("Cancel")
            onClicked: page.content.cancelWork()
        }
    }
    ProgressLine {
        anchors.bottom: work.top
        x: heading.x
        width: heading.width
        running: page.content.isLibrary && page.content.isLibraryBusy
        value: page.content.libraryShare
    }
    ListView {
        anchors.top: heading.bottom
        anchors.bottom: work.top
        x: heading.x
        width: heading.width
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: page.content.settings
        // Rows with a field must not lose what is typed in it.
        cacheBuffer: Theme.settingsHeight
        Accessible.role: Accessible.List
        Accessible.name: page.content.title
        T.ScrollBar.vertical: ThinScrollBar {}

        delegate: SettingLine {
            width: ListView.view.width
            onSwitched: on => page.content.setOn(index, on)
            onChosen: choice => page.content.choose(index, choice)
            onDayToggled: day => page.content.toggleDay(index, day)
            onEntered: text => page.content.setValue(index, text)
            onReset: page.content.reset(index)
            onActed: page.content.act(index)
        }
    }
}
