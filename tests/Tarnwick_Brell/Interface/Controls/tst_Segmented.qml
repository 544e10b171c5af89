import QtQuick
import QtTest
import TarnwickBrell.Controls

TestCase {
    id: test
    name: "SegmentedControl"
    when: windowShown
    width: 400
    height: 100
    visible: true

    SegmentedControl {
        id: ranges
        small: true
        model: ["1D", "1W", "1M", "1Y"]
        onActivated: index => currentIndex = index
    }
    SignalSpy {
        id: activations
        target: ranges
        signalName: "activated"
    }

    function init() {
        ranges.currentIndex = 1;
        activations.clear();
    }

    function test_arrows_choose_and_stop_at_the_ends() {
        ranges.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Left);
        keyClick(Qt.Key_Left);
        compare(ranges.currentIndex, 0);
        for (let i = 0; i < 5; ++i)
            keyClick(Qt.Key_Right);
        compare(ranges.currentIndex, 3);
        compare(activations.count, 4);
    }

    function test_a_click_chooses_what_lies_below_it_even_at_the_lower_edge() {
        verify(ranges.height >= Theme.leastTarget);
        mouseClick(ranges, ranges.width - 10, ranges.height - 2);
        compare(ranges.currentIndex, 3);
        mouseClick(ranges, ranges.width - 10, ranges.height / 2);
        compare(activations.count, 1);
    }
}
