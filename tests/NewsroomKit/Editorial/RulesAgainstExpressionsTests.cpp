#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <utility>

#include "NewsroomKit/Editorial/MarketNews.h"
#include "NewsroomKit/Editorial/PhraseAutomaton.h"
#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Editorial/PhraseTables.h"
#include "NewsroomKit/Editorial/StockNews.h"
#include "NewsroomKit/Editorial/StoryLabels.h"
#include "tests/support/ExpressionRules.h"

namespace kit {
namespace {

/// Lines on which phrase rules go wrong: phrases cut, glued to letters, digits and marks,
/// in odd spellings, beside each other and across the seam of headline and excerpt.
class RandomLines {
public:
    std::string line(std::size_t pieces) {
        std::string text;
        for (; pieces > 0; --pieces) text += chance(3) ? respelled(phrase()) : glue();
        return text;
    }

    /// An excerpt whose phrases often lie across the end of what the sourcing rules read.
    std::string excerpt() {
        std::string text;
        if (chance(3)) text.assign(262 + pick(20), chance(2) ? '.' : ' ');
        text += glue();
        return text + line(pick(6));
    }

    /// Headline and excerpt that share a phrase split at one of its spaces.
    std::pair<std::string, std::string> splitPhrase() {
        const std::string_view whole = phrase();
        const std::size_t space = whole.find(' ');
        if (space == std::string_view::npos) return {line(2) + respelled(whole), excerpt()};
        return {line(2) + respelled(whole.substr(0, space)),
                respelled(whole.substr(space + 1)) + excerpt()};
    }

    bool chance(std::size_t outOf) { return pick(outOf) == 0; }

private:
    std::size_t pick(std::size_t count) { return random_() % count; }

    std::string_view phrase() {
        const auto table = phrases(static_cast<PhraseTable>(pick(phraseTableCount)));
        return table[pick(table.size())];
    }

    // clang-format off
    std::string_view glue() {
        static constexpr std::string_view pieces[] = {
            " ", " ", " ", " ", "", "-", ".", ",", "'", "’", "“", "—", "\u00A0", "\n", "\t", "s",
            "X", "9", "é", "e\u0301", "\u0301", "ß", "ﬁ", "½", "９", "Ⅷ", "™", "_", "$", "漢", "ｱ",
            "\u200D", "👩‍👧", "𐐀", "\xFF", "\xE2\x80", "apple ", " shares rose", "Tim Cook "};
        // clang-format on
        return pieces[pick(std::size(pieces))];
    }

    std::string respelled(std::string_view phrase) {
        std::string text;
        const std::size_t style = pick(6);
        for (const char byte : phrase) {
            const bool letter = byte >= 'a' && byte <= 'z';
            if (letter && (style == 1 || (style == 2 && chance(3)))) {
                text += static_cast<char>(byte - 32);
            } else if (letter && style == 3 && chance(4)) {
                text += byte;
                text += "\u0308";
            } else if (byte == '\'' || byte == ' ') {
                text += byte == ' ' ? (style == 4 ? "\u2013" : " ") : "\u2019";
            } else {
                text += byte;
            }
        }
        if (style == 5) text.resize(pick(text.size()) + 1);
        return text;
    }

    std::mt19937 random_{20261121};
};

TEST(RulesAgainstExpressions, storiesGetTheSameLabelsAsFromOneExpressionPerPhrase) {
    const ExpressionRules reference;
    RandomLines lines;
    std::map<StoryKind, int> kinds;
    std::map<Sourcing, int> sourcings;
    for (int round = 0; round < 10'000; ++round) {
        auto [title, summary] =
            lines.chance(3) ? lines.splitPhrase() : std::pair(lines.line(4), lines.excerpt());
        const StoryKind kind = reference.kind(title, summary);
        const Sourcing sourcing = reference.sourcing(title, summary);
        const std::string shown =
            testing::PrintToString(title) + " | " + testing::PrintToString(summary);
        ASSERT_EQ(StoryKindRules::classify(title, summary), kind) << shown;
        ASSERT_EQ(SourcingRules::classify(title, summary, false), sourcing) << shown;
        const StoryLabels labels = labelStory(title, summary, false, true);
        ASSERT_EQ(labels.kind, StoryKindRules::explain(title, summary)) << shown;
        ASSERT_EQ(labels.sourcing, SourcingRules::explain(title, summary, false)) << shown;
        ++kinds[kind];
        ++sourcings[sourcing];
    }
    // Every label came up often enough for the comparison to mean something.
    EXPECT_EQ(kinds.size(), 6U);
    EXPECT_EQ(sourcings.size(), 5U);
    for (const auto& [kind, count] : kinds) EXPECT_GT(count, 50) << label(kind);
    for (const auto& [sourcing, count] : sourcings) EXPECT_GT(count, 50) << label(sourcing);
}

TEST(RulesAgainstExpressions, textsGetTheSameAnswersAsFromOneExpressionPerPhrase) {
    const ExpressionRules reference;
    RandomLines lines;
    int withReason = 0;
    for (int round = 0; round < 4'000; ++round) {
        const std::string text = lines.line(4);
        const auto reason = reference.marketReason(text);
        ASSERT_EQ(MarketNews::reason(text), reason) << testing::PrintToString(text);
        ASSERT_EQ(StockNews::isStockNews(text), reference.isStockNews(text))
            << testing::PrintToString(text);
        withReason += reason.has_value();
    }
    EXPECT_GT(withReason, 400);
}

TEST(RulesAgainstExpressions, everyTableReportsTheSameEarliestPhrase) {
    const ExpressionRules reference;
    RandomLines lines;
    for (int round = 0; round < 2'000; ++round) {
        const std::string text = lines.line(5);
        const PhraseHits hits = findPhrases(PhraseMatcher::normalize(text));
        for (std::size_t index = 0; index < phraseTableCount; ++index) {
            const auto table = static_cast<PhraseTable>(index);
            ASSERT_EQ(hits.first(table), reference.first(table, text))
                << tableName(table) << " in " << testing::PrintToString(text);
        }
    }
}

TEST(RulesAgainstExpressions, aMatcherByItselfAgreesWithItsExpression) {
    RandomLines lines;
    int matched = 0;
    for (int round = 0; round < 10'000; ++round) {
        const std::string term = lines.line(2);
        std::string text = PhraseMatcher::normalize(lines.line(2) + term + lines.line(2));
        const PhraseMatcher matcher(term);
        const bool matches = PhraseExpression(term).matches(text);
        ASSERT_EQ(matcher.matches(text), matches)
            << testing::PrintToString(term) << " in " << testing::PrintToString(text);
        matched += matches;
    }
    EXPECT_GT(matched, 1'000);
}

}  // namespace
}  // namespace kit
