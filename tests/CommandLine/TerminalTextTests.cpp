#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace cli;

TEST(TerminalText, CountsColumnsByWhatATerminalDraws) {
    struct Case {
        const char* text;
        std::size_t columns;
    };
    for (const auto& [text, columns] : std::vector<Case>{
             {"plain words", 11},
             {"caf\u00e9", 4},
             {"cafe\u0301", 4},
             {"\u65e5\u672c", 4},
             {"\uff21", 2},
             {"\u1100\u1161\u11a8", 2},  // a syllable of three letters
             {"\U0001F389", 2},          // a party popper
             {"\u231A", 2},              // a watch, an emoji by itself
             {"\u2764", 1},              // a heart as a letter
             {"\u2764\uFE0F", 2},        // and as an emoji
             {"1\uFE0F\u20E3", 2},       // a keycap
             {"\u00A9\uFE0F", 2},
             {"\U0001F44D\U0001F3FD", 2},                        // a thumb with a skin tone
             {"\U0001F468\u200D\U0001F469\u200D\U0001F467", 2},  // a family
             {"\U0001F3F4\u200D\u2620\uFE0F", 2},                // a pirate's flag
             {"\U0001F1EB\U0001F1EE", 2},                        // Finland's flag
             {"\U0001F1EB\U0001F1EE\U0001F1F8\U0001F1EA", 4},    // and Sweden's
             {"a\u2764\uFE0Fb", 4},
         }) {
        EXPECT_EQ(columnsOf(text), columns) << text;
    }
}

TEST(TerminalText, CutsBetweenCharactersAndFillsUpToTheColumn) {
    const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467";
    EXPECT_EQ(cutTo(family + "abc", 4), family + "a…");
    EXPECT_EQ(cutTo(family + family, 3), family + "…");
    EXPECT_EQ(cutTo(family + family, 2), "…");
    EXPECT_EQ(cutTo("pier opens late", 11), "pier opens…");
    EXPECT_EQ(cutTo("pier opens late", 6), "pier…") << "no gap before the dots";
    EXPECT_EQ(padTo("\u2764\uFE0F", 4), "\u2764\uFE0F  ");
    EXPECT_EQ(columnsOf(padTo(family + " and more", 7)), 7U);
}

}  // namespace
