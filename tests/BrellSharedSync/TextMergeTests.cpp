#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "BrellSharedSync/TextMerge.h"
#include "tests/BrellSharedSync/RandomFields.h"

namespace {

using shared::mergeTexts;

struct TextCase {
    const char* what;
    const char* base;
    const char* mine;
    const char* theirs;
    std::optional<std::string> merged;
};

TEST(TextMerge, BringsEditsAtDifferentPlacesTogetherAndLeavesOthersAlone) {
    const TextCase table[] = {
        {"one side only", "a\nb\nc\n", "a\nb\nc\n", "a\nx\nc\n", "a\nx\nc\n"},
        {"far apart", "a\nb\nc\nd\ne\n", "1\nb\nc\nd\ne\n", "a\nb\nc\nd\n5\n", "1\nb\nc\nd\n5\n"},
        {"put in and taken out", "a\nb\nc\nd\n", "a\nnew\nb\nc\nd\n", "a\nb\nc\n",
         "a\nnew\nb\nc\n"},
        {"the same on both", "a\nb\nc\n", "a\nx\nc\n", "a\nx\nc\n", "a\nx\nc\n"},
        {"the same and more", "a\nb\nc\nd\ne\n", "a\nx\nc\nd\ne\n", "a\nx\nc\nd\n5\n",
         "a\nx\nc\nd\n5\n"},
        {"one line in two ways", "a\nb\nc\n", "a\nx\nc\n", "a\ny\nc\n", std::nullopt},
        {"touching lines", "a\nb\nc\nd\n", "a\nx\nc\nd\n", "a\nb\ny\nd\n", std::nullopt},
        {"removed here, changed there", "a\nb\nc\n", "a\nc\n", "a\ny\nc\n", std::nullopt},
        {"both put in at one place", "a\nb\n", "a\nx\nb\n", "a\ny\nb\n", std::nullopt},
        {"one of equal lines goes, another changes", "a\n-\n-\n-\nb\n", "a\n-\n-\nb\n",
         "a\n-\n-\ny\nb\n", std::nullopt},
        {"one of equal lines comes, another changes", "a\n-\n-\n-\nb\n", "a\n-\n-\n-\n-\nb\n",
         "a\ny\n-\n-\nb\n", std::nullopt},
        {"the last line's end", "a\nb\nc", "a\nb\nc\nd", "1\nb\nc", "1\nb\nc\nd"},
        {"both wrote from nothing", "", "x\n", "y\n", std::nullopt},
    };
    for (const auto& row : table) {
        EXPECT_EQ(mergeTexts(row.base, row.mine, row.theirs), row.merged) << row.what;
        EXPECT_EQ(mergeTexts(row.base, row.theirs, row.mine), row.merged) << row.what << ", back";
    }
}

std::vector<std::string> words(shared::random::Dice& dice, std::size_t different) {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < 12; ++i) lines.push_back(std::to_string(dice.below(different)));
    return lines;
}

void edit(std::vector<std::string>& lines, const std::string& mark, shared::random::Dice& dice) {
    for (std::size_t i = 0; i <= dice.below(3); ++i) {
        const auto place = lines.begin() + static_cast<std::ptrdiff_t>(dice.below(lines.size()));
        if (dice.oneIn(3) && lines.size() > 1) {
            lines.erase(place);
        } else {
            lines.insert(place, mark + std::to_string(i));
        }
    }
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "\n";
    return text;
}

using Counts = std::map<std::string, std::ptrdiff_t>;

Counts counted(const std::string& text) {
    Counts counts;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = text.find('\n', at);
        ++counts[text.substr(at, end - at)];
        at = end + 1;
    }
    return counts;
}

std::ptrdiff_t countIn(const Counts& counts, const std::string& line) {
    const auto found = counts.find(line);
    return found == counts.end() ? 0 : found->second;
}

TEST(TextMerge, LosesNothingThatEitherWroteAndKeepsNothingThatEitherTookOut) {
    int merges = 0;
    for (std::uint64_t seed = 0; seed < 4'000; ++seed) {
        shared::random::Dice dice(seed);
        const auto base = words(dice, dice.oneIn(2) ? 4 : 1'000);
        auto mine = base;
        auto theirs = base;
        edit(mine, "mine", dice);
        edit(theirs, "theirs", dice);
        const auto merged = mergeTexts(joined(base), joined(mine), joined(theirs));
        ASSERT_EQ(merged, mergeTexts(joined(base), joined(theirs), joined(mine))) << seed;
        if (!merged) continue;
        ++merges;
        const auto was = counted(joined(base));
        const auto here = counted(joined(mine));
        const auto there = counted(joined(theirs));
        for (const auto& [line, count] : counted(*merged + joined(base))) {
            const auto added = [&, &text = line](const auto& side) {
                return countIn(side, text) - countIn(was, text);
            };
            const auto now = count - countIn(was, line);
            const auto change = added(here) + added(there);
            // What both took out alike went once.
            const auto once = std::max<std::ptrdiff_t>(0, std::min(-added(here), -added(there)));
            ASSERT_GE(now, countIn(was, line) + change) << line << ", seed " << seed;
            ASSERT_LE(now, countIn(was, line) + change + once) << line << ", seed " << seed;
        }
    }
    EXPECT_GT(merges, 500);
}

TEST(TextMerge, GivesUpOnTextsThatDifferEverywhereInTime) {
    std::string base;
    std::string mine;
    shared::random::Dice dice(7);
    for (int i = 0; i < 100'000; ++i) {
        base += static_cast<char>('a' + dice.below(3));
        base += '\n';
        mine += static_cast<char>('a' + dice.below(3));
        mine += '\n';
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(mergeTexts(base, mine, base), std::nullopt);
    const auto took = std::chrono::steady_clock::now() - start;
    RecordProperty("milliseconds", static_cast<int>(took / std::chrono::milliseconds(1)));
    EXPECT_LT(took, std::chrono::seconds(2));
}

}  // namespace
