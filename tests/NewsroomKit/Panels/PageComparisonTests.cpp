#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "NewsroomKit/Panels/PagesContent.h"

namespace kit {
namespace {

std::string numbers(int first, int last) {
    std::string text;
    for (int i = first; i <= last; ++i) text += "word" + std::to_string(i) + " ";
    return text;
}

/// A paragraph a line.
std::vector<PageBlock> paragraphs(const std::string& lines) {
    std::vector<PageBlock> blocks;
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);)
        blocks.push_back({PageBlock::Kind::paragraph, {}, {}, line, {}});
    return blocks;
}

std::string markedRuns(const PageChangeRow& change) {
    std::string shown;
    for (const auto& run : change.runs) {
        shown += shown.empty() ? "" : " ";
        if (run.kind == PageRun::Kind::removed) shown += "[-" + run.text + "-]";
        if (run.kind == PageRun::Kind::added) shown += "{+" + run.text + "+}";
        if (run.kind == PageRun::Kind::same) shown += run.text;
    }
    return shown;
}

/// The texts of two states as in "stays [-gone-] {+new+}".
std::string marked(const std::string& before, const std::string& after) {
    std::string shown;
    for (const auto& change : pageComparison(paragraphs(before), paragraphs(after)).changes)
        shown += (shown.empty() ? "" : " ") + markedRuns(change);
    return shown;
}

TEST(PageComparison, marks_words_and_leaves_out_the_middle_of_what_stays) {
    EXPECT_EQ(marked("Growers must sell pears only by day.", "Growers may sell pears by day."),
              "Growers [-must-] {+may+} sell pears [-only-] by day.");
    EXPECT_EQ(marked("one two three four five six", "sun moon tide wave reef"),
              "[-one two three four five six-] {+sun moon tide wave reef+}")
        << "hardly a word is left";
    EXPECT_EQ(marked(numbers(1, 40) + "must " + numbers(41, 72) + "old " + numbers(73, 120),
                     numbers(1, 40) + "may " + numbers(41, 72) + "new " + numbers(73, 120)),
              numbers(1, 16) + "… " + numbers(25, 40) + "[-must-] {+may+} " + numbers(41, 72) +
                  "[-old-] {+new+} " + numbers(73, 88) + "…");
}

TEST(PageComparison, names_the_words_that_turn_a_rule_round) {
    const char* const cases[][4] = {
        {"Growers must sell pears by day in May.", "Growers may sell pears by day in May.",
         "must → may", "1"},
        {"Growers may sell pears by day in May.", "Growers may only sell pears by day in May.", "",
         "1"},
        {"Growers sell old pears by day, never by night.",
         "Growers sell young pears by day, rarely by night.", "never → rarely", "2"},
        {"Growers sell pears by day.", "Growers sell apples by day.", "", "1"},
    };
    for (const auto& [before, after, turn, edits] : cases) {
        const auto rows = pageComparison(paragraphs(before), paragraphs(after)).changes;
        ASSERT_EQ(rows.size(), 1U) << after;
        EXPECT_EQ(rows[0].turn, turn) << after;
        EXPECT_EQ(std::to_string(rows[0].edits), edits) << after;
    }
}

TEST(PageComparison, the_whole_text_has_what_was_removed_where_it_stood) {
    const auto whole = [](const std::string& before, const std::string& after) {
        std::string text;
        for (const auto& row : wholeText(paragraphs(before), paragraphs(after)))
            text += markedRuns(row) + "\n";
        return text;
    };
    EXPECT_EQ(
        whole("Pears ripen late.\nNobody sells plums.\nFigs are rare here.\nEnd of the list.",
              "Pears ripen early.\nFigs are rare here.\nQuinces came in autumn.\nEnd of the list."),
        "Pears ripen [-late.-] {+early.+}\n[-Nobody sells plums.-]\nFigs are rare here.\n"
        "{+Quinces came in autumn.+}\nEnd of the list.\n");
    EXPECT_EQ(whole("Nobody sells plums.\nFigs are rare here.", "Figs are rare here."),
              "[-Nobody sells plums.-]\nFigs are rare here.\n");
    EXPECT_EQ(whole("Nobody sells plums.", ""), "[-Nobody sells plums.-]\n");
    EXPECT_EQ(whole("Pears are here.\nFigs are there.", "Figs are there.\nPears are here."),
              "Figs are there.\nPears are here.\n")
        << "what only moved is no change";
    const auto longText = numbers(1, 90) + "old end.";
    EXPECT_EQ(whole(longText, numbers(1, 90) + "new end."),
              numbers(1, 90) + "[-old-] {+new+} end.\n")
        << "nothing is left out";
}

TEST(PageComparison, changes_are_filtered_by_what_they_do) {
    const auto rows = pageComparison(paragraphs("Pears ripen late.\nNobody sells plums.\nFigs."),
                                     paragraphs("Pears ripen early.\nFigs.\nQuinces came."))
                          .changes;
    const auto count = [&](PageChangeFilter filter) {
        return filteredChanges(rows, filter).size();
    };
    EXPECT_EQ(rows.size(), 3U);
    EXPECT_EQ(count(PageChangeFilter::all), 3U);
    EXPECT_EQ(count(PageChangeFilter::additions), 2U);
    EXPECT_EQ(count(PageChangeFilter::removals), 2U);
}

}  // namespace
}  // namespace kit
