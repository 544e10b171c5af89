#include "NewsroomKit/Pages/PageDiff.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "NewsroomKit/Pages/MarkdownBlocks.h"

namespace kit {
namespace {

using Lines = std::vector<std::string>;

/// "verdict; kind words sentence" a change.
std::string told(const Lines& before, const Lines& after) {
    const auto diff = comparePages(markdownBlocks(before), markdownBlocks(after));
    std::string text(rawValue(diff.verdict));
    for (const auto& change : diff.changes) {
        text += "\n" + std::string(rawValue(change.kind)) + " " + std::to_string(change.words) +
                " " + change.sentence;
    }
    return text;
}

TEST(PageDiff, says_each_change_in_one_sentence) {
    const struct {
        Lines before, after;
        const char* told;
    } cases[] = {
        {{"a", "b"}, {"a", "b"}, "same"},
        {{"* a", "**b**"}, {"*   a", "b"}, "same"},
        {{"a", "b"}, {"b", "a"}, "order"},
        {{"## 2.5", "Apps must use it."},
         {"## 2.5", "Apps may use it."},
         "changed\nchanged 2 Changed in \"2.5\": \"must\" became \"may\" in \"Apps may use it.\""},
        {{"Ripe fruit is sold."},
         {"Ripe fruit is not sold."},
         "changed\nchanged 1 Changed: \"not\" was added in \"Ripe fruit is not sold.\""},
        {{"Old rules apply to all trees in the yard today"},
         {"Nobody waters anything now"},
         "changed\nchanged 14 Rewritten: \"Old rules apply to all trees in the yard today\" became "
         "\"Nobody waters anything now\""},
        {{"a", "gone with it", "b"},
         {"a", "b", "new"},
         "changed\nremoved 3 Removed: \"gone with it\"\nadded 1 Added: \"new\""},
        {{"# One", "x y z", "p", "q"},
         {"# Two", "p", "q", "x y z"},
         "changed\nchanged 2 The heading \"One\" is now \"Two\"\nmoved 0 Moved to \"Two\": \"x y "
         "z\""},
        {{"[the map](https://a.example)"},
         {"[the map](https://b.example)"},
         "same\nlinks 0 Links changed: \"the map\" led to https://a.example and now leads to "
         "https://b.example"},
        {{"same", "same", "same"}, {"same", "same"}, "changed\nremoved 1 Removed: \"same\""},
    };
    for (const auto& one : cases) EXPECT_EQ(told(one.before, one.after), one.told);
}

TEST(PageDiff, pairs_blocks_that_were_edited_where_others_were_added) {
    const Lines before{"Pears are picked in late autumn by hand.", "Plums are dried in the sun."};
    const Lines after{"A new first line about nothing else.",
                      "Pears are picked in early autumn by hand.", "And a second new line here.",
                      "Plums are dried in the shade."};
    EXPECT_EQ(
        told(before, after),
        "changed\nadded 7 Added: \"A new first line about nothing else.\""
        "\nchanged 2 Changed: \"late\" became \"early\" in \"Pears are picked in early autumn "
        "by hand.\""
        "\nadded 6 Added: \"And a second new line here.\""
        "\nchanged 2 Changed: \"sun.\" became \"shade.\" in \"Plums are dried in the shade.\"");
}

TEST(PageDiff, shows_eight_words_on_either_side_of_a_change) {
    const Lines before{"1 2 3 4 5 6 7 8 9 old 11 12 13 14 15 16 17 18 19 20"};
    const Lines after{"1 2 3 4 5 6 7 8 9 new 11 12 13 14 15 16 17 18 19 20"};
    EXPECT_EQ(told(before, after),
              "changed\nchanged 2 Changed: \"old\" became \"new\" in "
              "\"…2 3 4 5 6 7 8 9 new 11 12 13 14 15 16 17 18…\"");
}

TEST(PageDiff, leaves_noise_out_of_the_words_that_changed) {
    EXPECT_EQ(
        told({"Posted 5 minutes ago in red"}, {"Posted an hour ago in blue"}),
        "changed\nchanged 2 Changed: \"red\" became \"blue\" in \"Posted an hour ago in blue\"");
}

TEST(PageDiff, compares_long_pages_that_have_nothing_in_common) {
    Lines before, after;
    std::string longLine, otherLine;
    for (int i = 0; i < 30'000; ++i) {
        longLine += "a" + std::to_string(i % 7) + " ";
        otherLine += "b" + std::to_string(i % 5) + " ";
    }
    for (int i = 0; i < 3'000; ++i) {
        before.push_back("old " + std::to_string(i));
        after.push_back("new " + std::to_string(-i));
    }
    before.push_back(longLine);
    after.push_back(otherLine);
    const auto diff = comparePages(markdownBlocks(before), markdownBlocks(after));
    EXPECT_EQ(diff.verdict, PageDiff::Verdict::changed);
    EXPECT_FALSE(diff.changes.empty());
}

TEST(PageDiff, compares_hostile_pages_in_bounded_time) {
    Lines few, fewer, shuffled, sorted;
    for (int i = 0; i < 50'000; ++i) {
        few.push_back(i % 2 ? "yes" : "no");
        fewer.push_back(i % 3 ? "no" : "yes");
    }
    for (int i = 0; i < 50'000; ++i) {
        sorted.push_back("line " + std::to_string(i));
        shuffled.push_back("line " + std::to_string(i * 7'919 % 50'000));
    }
    shuffled.push_back("one more");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(comparePages(markdownBlocks(few), markdownBlocks(fewer)).verdict,
              PageDiff::Verdict::changed);
    const auto diff = comparePages(markdownBlocks(sorted), markdownBlocks(shuffled));
    EXPECT_TRUE(std::ranges::all_of(diff.changes, [](const PageChange& change) {
        return change.kind == PageChange::Kind::moved || change.words == 2;
    })) << "lines that stand elsewhere have only moved";
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace kit
