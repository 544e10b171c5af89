import QtQuick
import QtTest
import TarnwickBrell.Controls

TestCase {
    id: test
    name: "WordTokensField"
    when: windowShown
    width: 300
    height: 300
    visible: true

    WordTokensField {
        id: field
        width: 280
        label: "Words"
        onAdded: text => words = words.concat(text.split(",").filter(word => word.trim()).map(word => word.trim()))
        onRemoved: index => words = words.filter((word, at) => at !== index)
    }

    function init() {
        field.words = ["modem", "A20"];
        field.text = "";
        field.focusText();
    }
    function all() {
        return field.words.join("|");
    }

    function test_a_comma_or_enter_or_tab_ends_a_word_data() {
        return [{ tag: "comma", key: Qt.Key_Comma }, { tag: "enter", key: Qt.Key_Return }, { tag: "tab", key: Qt.Key_Tab }];
    }
    function test_a_comma_or_enter_or_tab_ends_a_word(data) {
        for (const letter of "tsmc")
            keyClick(letter);
        data.tag === "comma" ? keyClick(",") : keyClick(data.key);
        compare(all(), "modem|A20|tsmc");
        compare(field.text, "");
        keyClick("x");
        compare(field.text, "x");
    }
    function test_a_lone_comma_adds_nothing() {
        keyClick(",");
        compare(all(), "modem|A20");
    }
    function test_backspace_selects_the_last_word_before_it_removes_it() {
        keyClick("m");
        keyClick(Qt.Key_Backspace);
        compare(field.current, -1);
        keyClick(Qt.Key_Backspace);
        compare(field.current, 1);
        compare(all(), "modem|A20");
        keyClick(Qt.Key_Backspace);
        compare(all(), "modem");
        compare(field.current, -1);
    }
    function test_arrows_walk_the_words_and_delete_removes_the_one_reached() {
        keyClick(Qt.Key_Left);
        keyClick(Qt.Key_Left);
        keyClick(Qt.Key_Left);
        compare(field.current, 0);
        keyClick(Qt.Key_Delete);
        compare(all(), "A20");
        keyClick(Qt.Key_Left);
        keyClick(Qt.Key_Right);
        compare(field.current, -1);
    }
    function test_it_grows_by_a_line_and_then_scrolls() {
        const line = field.implicitHeight;
        field.words = Array.from({ length: 40 }, (each, at) => "word " + at);
        tryCompare(field, "implicitHeight", line + 3 * Theme.wordTokenLine);
    }
}
