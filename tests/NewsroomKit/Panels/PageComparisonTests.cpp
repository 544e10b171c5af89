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

/// The texts of two states as in "stays [-gone-] {+new+}".
std::string marked(const std::string& before, const std::string& after) {
    const auto block = [](const std::string& text) {
        return std::vector{PageBlock{PageBlock::Kind::paragraph, {}, {}, text, {}}};
    };
    std::string shown;
    for (const auto& change : pageComparison(block(before), block(after)).changes) {
        for (const auto& run : change.runs) {
            shown += shown.empty() ? "" : " ";
            if (run.kind == PageRun::Kind::removed) shown += "[-" + run.text + "-]";
            if (run.kind == PageRun::Kind::added) shown += "{+" + run.text + "+}";
            if (run.kind == PageRun::Kind::same) shown += run.text;
        }
    }
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

}  // namespace
}  // namespace kit
