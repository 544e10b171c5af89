import QtQuick
import QtTest
import TarnwickBrell.Controls

TestCase {
    id: test
    name: "Buttons"
    when: windowShown
    width: 400
    height: 200
    visible: true

    Component { id: deskButton; DeskButton { text: "Retry" } }
    Component { id: iconButton; IconButton { symbol: "plus"; text: "Add" } }
    Component { id: linkText; LinkText { text: "Try now" } }
    Component { id: chip; Chip { text: "Kind" } }
    Component { id: pill; Pill { text: "12 new stories"; shown: true } }
    Component { id: tick; DeskCheckBox { text: "Save" } }
    Component { id: spy; SignalSpy {} }
    FocusScope { id: elsewhere }

    function made(component: Component, properties: var): Item {
        return createTemporaryObject(component, test, properties ?? {});
    }
    function heard(item: Item, name: string): SignalSpy {
        return createTemporaryObject(spy, test, { target: item, signalName: name });
    }

    function test_every_button_answers_its_keys_and_is_large_enough_data() {
        return [{ tag: "DeskButton", type: deskButton }, { tag: "IconButton", type: iconButton },
            { tag: "LinkText", type: linkText }, { tag: "Chip", type: chip },
            { tag: "Pill", type: pill }, { tag: "DeskCheckBox", type: tick }];
    }
    function test_every_button_answers_its_keys_and_is_large_enough(data) {
        const item = made(data.type);
        const clicks = heard(item, "clicked");
        verify(item.height >= Theme.leastTarget);
        verify(item.Accessible.name);
        item.forceActiveFocus(Qt.TabFocusReason);
        for (const key of [Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter])
            keyClick(key);
        compare(clicks.count, 3);
        item.enabled = false;
        mouseClick(item);
        compare(clicks.count, 3);
    }

    function test_a_click_leaves_the_focus_where_it_is_and_shows_no_ring() {
        const item = made(deskButton);
        elsewhere.forceActiveFocus();
        mouseClick(item);
        verify(elsewhere.activeFocus);
        item.forceActiveFocus(Qt.MouseFocusReason);
        verify(!item.visualFocus);
        elsewhere.forceActiveFocus();
        item.forceActiveFocus(Qt.TabFocusReason);
        verify(item.visualFocus);
    }

    function test_keys_check_what_can_be_checked() {
        for (const item of [made(tick), made(iconButton, { checkable: true })]) {
            item.forceActiveFocus(Qt.TabFocusReason);
            const toggles = heard(item, "toggled");
            keyClick(Qt.Key_Return);
            verify(item.checked);
            keyClick(Qt.Key_Space);
            verify(!item.checked);
            compare(toggles.count, 2);
        }
    }

    function test_a_chip_is_cleared_only_while_it_is_active() {
        const item = made(chip);
        const clears = heard(item, "cleared");
        const clicks = heard(item, "clicked");
        item.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Delete);
        mouseClick(item, item.width - 8, item.height / 2);
        compare(clears.count, 0);
        compare(clicks.count, 1);
        item.active = true;
        keyClick(Qt.Key_Delete);
        keyClick(Qt.Key_Backspace);
        mouseClick(item, item.width - 8, item.height / 2);
        compare(clears.count, 3);
        compare(clicks.count, 1);
    }
}
