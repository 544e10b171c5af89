import QtQuick
import QtTest
import TarnwickBrell.Controls

TestCase {
    id: test
    name: "Theme"

    function cleanup() {
        Theme.dark = false;
        Theme.fontScale = 1;
        Theme.reducedMotion = false;
    }

    function linear(part: real): real {
        return part <= 0.04045 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
    }
    function luminance(shade: color): real {
        return 0.2126 * linear(shade.r) + 0.7152 * linear(shade.g) + 0.0722 * linear(shade.b);
    }
    function contrast(first: color, second: color): real {
        const one = luminance(first), other = luminance(second);
        return (Math.max(one, other) + 0.05) / (Math.min(one, other) + 0.05);
    }

    function test_text_can_be_read_on_every_ground_it_stands_on_data() {
        const grounds = {
            text1: "surface canvas sidebar raised field hover press selected selectedIdle navSelected amberSoft redSoft",
            text2: "surface canvas sidebar raised field hover press selected selectedIdle navSelected amberSoft redSoft",
            text3: "surface canvas sidebar raised field hover press selected selectedIdle navSelected",
            accentText: "surface canvas raised field selected amberSoft accentSoft press navSelected",
            textOnAccent: "accent accentHover accentPress",
            green: "surface raised greenSoft", blue: "blueSoft", report: "reportSoft",
            amber: "amberSoft field", red: "surface redSoft", textOnTip: "tip"
        };
        let rows = [];
        for (const ink in grounds) {
            for (const ground of grounds[ink].split(" "))
                rows.push({ tag: ink + " on " + ground, ink: ink, ground: ground });
        }
        return rows;
    }
    function test_text_can_be_read_on_every_ground_it_stands_on(data) {
        for (const dark of [false, true]) {
            Theme.dark = dark;
            const found = contrast(Theme[data.ink], Theme[data.ground]);
            verify(found >= 4.5, found.toFixed(2) + (dark ? " in dark" : " in light"));
        }
    }

    function test_marks_and_rings_are_seen_data() {
        return ["edge canvas", "edge field", "accent raised", "accent canvas", "greenMark sidebar",
            "amberMark surface", "redMark sidebar", "blueMark surface"].map(pair => ({ tag: pair }));
    }
    function test_marks_and_rings_are_seen(data) {
        const pair = data.tag.split(" ");
        for (const dark of [false, true]) {
            Theme.dark = dark;
            verify(contrast(Theme[pair[0]], Theme[pair[1]]) >= 3, dark ? "in dark" : "in light");
        }
    }

    function test_nothing_moves_under_reduced_motion() {
        verify(Theme.fade > 0 && Theme.move > 0);
        Theme.reducedMotion = true;
        compare(Theme.fade + Theme.move, 0);
    }

    Component {
        id: words

        DeskText { width: 200; lines: 3; text: "One\nTwo\nThree" }
    }

    function test_lines_keep_their_height_with_their_text_on_whole_pixels() {
        const item = createTemporaryObject(words, test);
        for (const scale of [1, 1.25]) {
            Theme.fontScale = scale;
            for (let type = DeskText.Meta; type <= DeskText.Figure; ++type) {
                item.type = type;
                compare(item.height, 3 * Theme.textStyles[type].lineHeight);
                const base = item.topPadding + Theme.textStyles[type].metrics.ascent;
                fuzzyCompare(base, Math.round(base), 0.01, "type " + type);
            }
        }
        item.type = DeskText.Base;
        item.lineHeight = Theme.panelLine;
        compare(item.height, 3 * Theme.panelLine);
    }

    function test_text_from_outside_is_never_taken_for_markup() {
        const plain = createTemporaryObject(words, test, { text: "<b>Big</b> <img src='x'>", lines: 1, width: 400 });
        compare(plain.textFormat, Text.PlainText);
        compare(plain.lineCount, 1);
    }
}
