import QtQuick
import QtTest
import TarnwickBrell.Controls

TestCase {
    id: test
    name: "Sheet"
    when: windowShown
    width: 800
    height: 600
    visible: true

    DeskButton { id: below; text: "Below" }
    Sheet {
        id: sheet
        title: "Add a source"
        foot: [
            DeskButton { id: cancel; text: "Cancel"; inSheet: true },
            DeskButton { id: add; text: "Add"; inSheet: true; enabled: false }
        ]

        DeskField { id: address; width: parent.width; main: true; focus: true }
    }
    SearchField { id: search; y: 40; placeholderText: "Search" }
    SignalSpy { id: clicksBelow; target: below; signalName: "clicked" }
    SignalSpy { id: escapes; target: search; signalName: "escaped" }
    SignalSpy { id: edits; target: search; signalName: "textEdited" }
    DeskMenu {
        id: menu

        DeskMenuItem { id: first; text: "Options" }
        MenuLine {}
        DeskMenuItem { id: wide; text: "Take the words of the newsroom"; key: "Del"; checkable: true }
    }
    SignalSpy { id: triggers; target: wide; signalName: "triggered" }
    Toast { id: toast }
    SignalSpy { id: undos; target: toast; signalName: "acted" }

    function initTestCase() { Theme.reducedMotion = true; }
    function cleanupTestCase() { Theme.reducedMotion = false; }

    function test_a_sheet_keeps_the_focus_and_gives_it_back_on_escape() {
        below.forceActiveFocus(Qt.TabFocusReason);
        sheet.open();
        tryVerify(() => address.activeFocus);
        for (let i = 0; i < 7; ++i) {
            keyClick(Qt.Key_Tab);
            verify(!below.activeFocus && !search.activeFocus);
        }
        for (let i = 0; i < 7; ++i) {
            keyClick(Qt.Key_Tab, Qt.ShiftModifier);
            verify(!below.activeFocus && !search.activeFocus);
        }
        mouseClick(below);
        compare(clicksBelow.count, 0);
        address.forceActiveFocus();
        keyClick(Qt.Key_A);
        compare(address.text, "a");
        keyClick(Qt.Key_Escape);
        tryVerify(() => !sheet.visible);
        verify(below.activeFocus);
    }

    function test_a_sheet_is_as_high_as_its_contents_within_the_window() {
        sheet.open();
        tryVerify(() => sheet.opened);
        compare(sheet.height, Theme.sheetHeader + address.height + Theme.space6 + Theme.sheetFoot);
        compare(cancel.mapToItem(null, 0, 0).y + cancel.height / 2,
                sheet.y + sheet.height - Theme.sheetFoot / 2);
        sheet.close();
    }

    function test_escape_empties_a_search_and_leaves_it_when_it_is_empty() {
        search.forceActiveFocus();
        keyClick(Qt.Key_V);
        edits.clear();
        keyClick(Qt.Key_Escape);
        compare(search.text, "");
        compare(edits.count, 1);
        verify(search.activeFocus);
        keyClick(Qt.Key_Escape);
        verify(!search.activeFocus);
        compare(escapes.count, 1);
    }

    function test_a_menu_is_wide_enough_and_is_worked_by_keys() {
        menu.open();
        tryVerify(() => menu.opened);
        verify(wide.width >= wide.implicitWidth);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        compare(triggers.count, 1);
        verify(wide.checked);
        tryVerify(() => !menu.visible);
    }

    function test_a_notice_goes_when_its_action_is_taken() {
        toast.show("Story removed from Saved.", "Undo");
        tryVerify(() => toast.opened);
        mouseClick(toast.contentItem, toast.availableWidth - 4, toast.availableHeight / 2);
        compare(undos.count, 1);
        tryVerify(() => !toast.visible);
    }
}
