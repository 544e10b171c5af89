#include <algorithm>
#include <limits>
#include <stdexcept>

#include <gtest/gtest.h>

#include "tests/NewsroomKit/Newsrooms/LayoutFaults.h"

namespace kit {
namespace {

using namespace PanelPlacement;
using Limits = std::numeric_limits<std::int64_t>;

/// Rows from the top between bars, a letter a cell: the panels are a, b, c, …
std::string picture(const Placement& panels) {
    std::vector<std::string> rows;
    for (std::size_t i = 0; i < panels.size(); ++i) {
        const auto& f = panels[i].frame;
        for (auto row = f.row; row < f.bottom(); ++row) {
            while (std::ssize(rows) <= row) rows.emplace_back(kGridColumns, '.');
            for (auto column = f.column; column < f.right(); ++column)
                rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] =
                    static_cast<char>('a' + i);
        }
    }
    std::string out = "|";
    for (const auto& row : rows) out += row + "|";
    return out;
}

PlacedPanel panelAt(GridFrame frame) { return {.kind = PanelKind::status, .frame = frame}; }

// aaaabbbbdddd
// aaaabbbbdddd
// aaaa....dddd
// aaaa........
// cccccccc....
// cccccccc....
const Placement kFour{panelAt({0, 0, 4, 4}), panelAt({4, 0, 4, 2}), panelAt({0, 4, 8, 2}),
                      panelAt({8, 0, 4, 3})};

// c could rise to the top if b were not there.
const Placement kLedge{panelAt({0, 0, 4, 4}), panelAt({0, 4, 12, 2}), panelAt({8, 6, 4, 2})};

TEST(PanelPlacement, PanelsInTheWayGoDownAndGapsClose) {
    struct Case {
        const char* operation;
        Placement result;
        std::string expected;
    };
    const std::string fourUnchanged =
        "|aaaabbbbdddd|aaaabbbbdddd|aaaa....dddd|aaaa........|cccccccc....|cccccccc....|";
    const std::string aUnderC =
        "|....bbbbdddd|....bbbbdddd|ccccccccdddd|cccccccc...."
        "|aaaa........|aaaa........|aaaa........|aaaa........|";
    const Case cases[] = {
        {"move c onto a and b", moved(kFour, 2, 0, 0),
         "|ccccccccdddd|ccccccccdddd|aaaabbbbdddd|aaaabbbb....|aaaa........|aaaa........|"},
        {"move c under b and d, past the right end", moved(kFour, 2, 9, 3),
         "|aaaabbbbdddd|aaaabbbbdddd|aaaa....dddd|aaaacccccccc|....cccccccc|"},
        {"move c onto the last row of d", moved(kFour, 2, 4, 2),
         "|aaaabbbb....|aaaabbbb....|aaaacccccccc|aaaacccccccc"
         "|........dddd|........dddd|........dddd|"},
        {"move a down, not yet past c", moved(kFour, 0, 0, 3), fourUnchanged},
        {"move a down past c", moved(kFour, 0, 0, 4), aUnderC},
        {"step a down", nudged(kFour, 0, Direction::down), aUnderC},
        {"step a down and up again", nudged(moved(kFour, 0, 0, 4), 0, Direction::up),
         fourUnchanged},
        {"step c down, where nothing is", nudged(kFour, 2, Direction::down), fourUnchanged},
        {"step d left", nudged(kFour, 3, Direction::left),
         "|aaaa...dddd.|aaaa...dddd.|aaaa...dddd.|aaaabbbb....|....bbbb....|cccccccc....|cccccccc.."
         "..|"},
        {"widen b to the right", resized(kFour, 1, {4, 0, Limits::max(), 2}),
         "|aaaabbbbbbbb|aaaabbbbbbbb|aaaa....dddd|aaaa....dddd|ccccccccdddd|cccccccc....|"},
        {"widen b to the left", resized(kFour, 1, {2, 0, 6, 2}),
         "|..bbbbbbdddd|..bbbbbbdddd|aaaa....dddd|aaaa........|aaaa........|aaaa........"
         "|cccccccc....|cccccccc....|"},
        {"shrink a", resized(kFour, 0, {0, 0, 4, Limits::min()}),
         "|aaaabbbbdddd|aaaabbbbdddd|ccccccccdddd|cccccccc....|"},
        {"narrow b from the left", resized(kFour, 1, {7, 0, 1, 2}),
         "|aaaa..bbdddd|aaaa..bbdddd|aaaa....dddd|aaaa........|cccccccc....|cccccccc....|"},
        {"insert e over a and b", inserted(kFour, panelAt({2, 1, 6, 2})),
         "|..eeeeeedddd|..eeeeeedddd|aaaabbbbdddd|aaaabbbb....|aaaa........|aaaa........"
         "|cccccccc....|cccccccc....|"},
        {"append e", appended(kFour, PanelKind::status),
         "|aaaabbbbdddd|aaaabbbbdddd|aaaa....dddd|aaaa....eee.|cccccccceee.|cccccccc....|"},
        {"remove a", removed(kFour, 0), "|....aaaacccc|....aaaacccc|bbbbbbbbcccc|bbbbbbbb....|"},
        {"heighten the ledge", resized(kLedge, 1, {0, 4, 12, 4}),
         "|aaaa........|aaaa........|aaaa........|aaaa........|bbbbbbbbbbbb|bbbbbbbbbbbb"
         "|bbbbbbbbbbbb|bbbbbbbbbbbb|........cccc|........cccc|"},
        {"move the ledge past c", moved(kLedge, 1, 0, 6),
         "|aaaa....cccc|aaaa....cccc|aaaa........|aaaa........|bbbbbbbbbbbb|bbbbbbbbbbbb|"},
    };
    for (const auto& c : cases) EXPECT_EQ(picture(c.result), c.expected) << c.operation;
    EXPECT_THROW(moved(kFour, 4, 0, 0), std::out_of_range);

    const Placement tower{panelAt({0, 0, 4, 24}), panelAt({0, 24, 4, 4})};
    EXPECT_EQ(resized(tower, 1, {0, 0, 4, 28})[1].frame, (GridFrame{0, 0, 4, 24}));
}

/// Now and then a number that no sane file holds.
std::int64_t cell(Dice& dice) {
    switch (dice(0, 30)) {
        case 0: return Limits::min();
        case 1: return Limits::max();
        case 2: return dice(-1000, 1000);
        case 3: return dice(13, 60);
        default: return dice(-1, 12);
    }
}

GridFrame frame(Dice& dice) { return {cell(dice), cell(dice), cell(dice), cell(dice)}; }

Placement anyLayout(Dice& dice, std::int64_t most) {
    Placement panels(static_cast<std::size_t>(dice(1, most)));
    for (auto& panel : panels) panel = {.kind = dice.kind(), .frame = frame(dice)};
    return panels;
}

/// The panels besides `hand` are the same ones in the same sizes.
bool keepsOthers(const Placement& before, const Placement& after, std::size_t hand) {
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
        const auto& [kind, f] = before[i];
        const auto& [newKind, g] = after[i];
        if (kind != newKind) return false;
        if (i != hand && (f.width != g.width || f.height != g.height)) return false;
    }
    return true;
}

/// Nothing in the columns of the panel lies below it.
bool isLowest(const Placement& panels, std::size_t panel) {
    const auto& f = panels[panel].frame;
    return std::none_of(panels.begin(), panels.end(), [&](const PlacedPanel& other) {
        const auto& g = other.frame;
        return g.row > f.row && f.column < g.right() && g.column < f.right();
    });
}

TEST(PanelPlacement, AnyLayoutIsMadeTidyOnceAndStaysTidyUnderEveryOperation) {
    Dice dice(2);
    for (int round = 0; round < 3000; ++round) {
        const auto wild = anyLayout(dice, round % 1000 == 0 ? 2000 : 14);
        const auto start = tidied(wild);
        ASSERT_EQ(start.size(), wild.size());
        ASSERT_EQ(faultOf(start), "");
        ASSERT_EQ(tidied(start), start);

        const auto hand = static_cast<std::size_t>(dice(0, std::ssize(start) - 1));
        const auto& held = start[hand].frame;
        const auto wanted = frame(dice);
        const auto away = moved(start, hand, wanted.column, wanted.row);
        ASSERT_EQ(faultOf(away), "");
        ASSERT_EQ(away.size(), start.size());
        ASSERT_TRUE(keepsOthers(start, away, start.size()));
        ASSERT_EQ(away[hand].frame.column,
                  std::clamp<std::int64_t>(wanted.column, 0, 12 - held.width));
        ASSERT_LE(away[hand].frame.row, std::max<std::int64_t>(wanted.row, 0));
        ASSERT_EQ(moved(start, hand, held.column, held.row), start) << picture(start);
        ASSERT_EQ(resized(start, hand, held), start) << picture(start);

        const auto grown = resized(start, hand, wanted);
        const auto direction = static_cast<Direction>(dice(0, 3));
        const auto nudge = nudged(start, hand, direction);
        if (direction == Direction::down) {
            ASSERT_EQ(nudge == start, isLowest(start, hand));
        }
        const auto more = inserted(start, {.kind = dice.kind(), .frame = wanted});
        const auto added = appended(start, dice.kind());
        const auto fewer = removed(start, hand);
        for (const auto* after : {&grown, &nudge, &more, &added, &fewer})
            ASSERT_EQ(faultOf(*after), "") << picture(start);
        ASSERT_TRUE(keepsOthers(start, grown, hand) && keepsOthers(start, nudge, start.size()));
        ASSERT_TRUE(keepsOthers(start, more, start.size()));
        ASSERT_EQ(Placement(added.begin(), added.end() - 1), start);
        ASSERT_EQ(std::ssize(fewer), std::ssize(start) - 1);
        ASSERT_EQ(std::ssize(more), std::ssize(start) + 1);
    }
}

}  // namespace
}  // namespace kit
