#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Queries/StoryQuery.h"

namespace kit {
namespace {

/// Texts and terms of everything that folding, word boundaries and UTF-8 make difficult.
class Writer {
public:
    explicit Writer(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t count) { return random_() % count; }

    // clang-format off
    std::string text(std::size_t mostPieces) {
        static const std::vector<std::string> pieces{
            "a", "b", "A", "B", "x", "7", "aa", "Ab", "ab", "bA", "mac", "Mac", "18", "iPhone",
            " ", " ", " ", "-", ".", "'", "$", "&", "#", "\t", "\n", " \n ", "\r\n", "\v",
            "é", "É", "e\u0301", "a\u0301\u0302\u0327", "\u0301", "ａｂ", "Ｍａｃ", "１８",
            "\u3000", "ß", "ẞ", "ss", "ﬁ", "ﬀ", "İ", "ŉ", "™", "½", "…", "’", "‘", "“", "”", "—",
            "–", "\u00A0", "\u2003", "\u2028", "🍎", "👩🏽‍💻", "i️⃣", "苹果", "手机", "ｶﾞ", "ガ",
            "한국", "Мак", "мак", "Й", "שָׁ", std::string(1, '\0'), "\xC3", "\xE2\x80", "\xFF",
            "\xA9"};
        // clang-format on
        std::string text;
        for (auto left = below(mostPieces + 1); left > 0; --left) {
            text += pieces[below(pieces.size())];
        }
        return text;
    }

    /// Often a piece of the text, so that many occur; cut anywhere, even inside a character.
    std::string term(const std::string& text) {
        if (below(3) == 0 || text.empty()) return this->text(4);
        std::string term = text.substr(below(text.size()), 1 + below(12));
        if (below(2) == 0) term = PhraseMatcher::normalize(term);
        if (below(4) == 0) term += this->text(1);
        return term;
    }

private:
    std::mt19937 random_;
};

/// The rule by its own words.
struct Reference {
    std::vector<PhraseMatcher> any{};
    std::vector<PhraseMatcher> excluded{};

    explicit Reference(const StoryQuery& query) {
        for (const auto& term : query.anyTerms) any.emplace_back(term);
        for (const auto& term : query.excludedTerms) excluded.emplace_back(term);
        const auto isBlank = [](const PhraseMatcher& matcher) { return matcher.phrase.empty(); };
        std::erase_if(any, isBlank);
        std::erase_if(excluded, isBlank);
    }

    bool matches(const Story& story) const {
        const auto text = PhraseMatcher::normalize(story.title + " \n " + story.summary);
        const auto occurs = [&](const PhraseMatcher& term) { return term.matches(text); };
        if (std::any_of(excluded.begin(), excluded.end(), occurs)) return false;
        return any.empty() || std::any_of(any.begin(), any.end(), occurs);
    }
    std::optional<std::string> matchedTerm(const Story& story) const {
        const auto text = PhraseMatcher::normalize(story.title + " \n " + story.summary);
        for (const auto& term : any) {
            if (term.matches(text)) return term.phrase;
        }
        return std::nullopt;
    }
};

TEST(CompiledStoryQuery, AgreesWithEachTermOnTheFoldedTextWhateverTextAndTermsAre) {
    Writer writer(5);
    std::size_t tests = 0, matching = 0;
    for (int round = 0; round < 4000; ++round) {
        std::vector<Story> stories(5);
        std::string all;
        for (auto& story : stories) {
            story.title = writer.text(12);
            story.summary = writer.text(30);
            all += story.title + " \n " + story.summary;
        }
        StoryQuery query;
        const std::size_t most = round % 100 == 0 ? 300 : 6;
        for (auto left = writer.below(most); left > 0; --left) {
            query.anyTerms.push_back(writer.term(all));
        }
        if (round % 2 == 0) {
            for (auto left = writer.below(3); left > 0; --left) {
                query.excludedTerms.push_back(writer.term(all));
            }
        }
        const auto compiled = query.compiled();
        const Reference reference(query);
        for (const auto& story : stories) {
            const auto shown = [&] {
                return ::testing::PrintToString(query.anyTerms) + " without " +
                       ::testing::PrintToString(query.excludedTerms) + " in " +
                       ::testing::PrintToString(story.title) + ", " +
                       ::testing::PrintToString(story.summary);
            };
            ASSERT_EQ(compiled.matches(story), reference.matches(story)) << shown();
            ASSERT_EQ(compiled.matchedTerm(story), reference.matchedTerm(story)) << shown();
            ++tests;
            matching += reference.matches(story) ? 1U : 0U;
        }
    }
    EXPECT_GT(matching, tests / 5);
    EXPECT_LT(matching, tests * 4 / 5);
}

TEST(CompiledStoryQuery, FindsATermAtEveryPlaceOfATextOfEveryLength) {
    const std::string phrases[] = {"x",    "$",     "qz", "q&",   "qzx",
                                   "Qz x", "qzxwv", "é",  "苹果", "qzxwvkjq"};
    for (const auto& phrase : phrases) {
        const auto compiled = StoryQuery{.anyTerms = {phrase}}.compiled();
        for (std::size_t length = 0; length < 40; ++length) {
            for (std::size_t place = 0; place <= length; ++place) {
                std::string text(length, '.');
                text.insert(place, phrase);
                ASSERT_TRUE(compiled.matches(StoryFacts{.title = text})) << text;
                ASSERT_TRUE(compiled.matches(StoryFacts{.title = "t", .summary = text})) << text;
            }
            ASSERT_FALSE(compiled.matches(StoryFacts{.title = std::string(length, '.')})) << phrase;
        }
    }
}

}  // namespace
}  // namespace kit
