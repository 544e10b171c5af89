#include <gtest/gtest.h>

#include "NewsroomKit/Queries/StoryQuery.h"

namespace kit {
namespace {

Story titled(std::string title, std::string summary = "") {
    return {.title = std::move(title), .summary = std::move(summary), .sourceID = "a"};
}

TEST(StoryQuery, ATermMatchesAsWholeWordsOrAsAPlainPiece) {
    struct Case {
        const char* term;
        const char* title;
        bool matches;
    };
    const Case cases[] = {
        {"Café", "A cafe opens", true},
        {"Café", "THE CAFÉ", true},
        {"apple's", "Apple’s plan", true},
        {"ai", "Apple Intelligence (AI) grows", true},
        {"ai", "Thai food, he said", false},
        {"a&m", "Texas A&MX", true},
        {"iPhone 16", "iPhone 16e arrives", false},
        {" \t iPhone 16 ", "The iPhone 16, again", true},
        {"$AAPL", "Why $aapl rose", true},
    };
    for (const auto& c : cases) {
        const StoryQuery query{.anyTerms = {c.term}};
        EXPECT_EQ(query.compiled().matches(titled(c.title)), c.matches)
            << c.term << " in " << c.title;
    }
}

TEST(StoryQuery, ConditionsAreTestedTogetherAndExclusionWins) {
    Story deal = titled("A deal on AirPods");
    deal.kind = StoryKind::deal;
    const Story news = titled("AirPods learn a trick", "Sources say so");

    EXPECT_TRUE(StoryQuery{}.compiled().matches(news));
    EXPECT_FALSE(StoryQuery{}.compiled().matches(deal));
    EXPECT_TRUE(StoryQuery{.includesSetAside = true}.compiled().matches(deal));
    EXPECT_FALSE(
        (StoryQuery{.anyTerms = {"airpods"}, .excludedTerms = {"trick"}}.compiled().matches(news)));
    EXPECT_TRUE((StoryQuery{.excludedTerms = {"watch"}}.compiled().matches(news)));
    EXPECT_FALSE((StoryQuery{.sourceIDs = {"nobody"}}.compiled().matches(news)));
    EXPECT_FALSE((StoryQuery{.sourcings = {Sourcing::rumor}}.compiled().matches(news)));
    EXPECT_TRUE(
        (StoryQuery{.sourcings = {Sourcing::rumor, Sourcing::unlabeled}}.compiled().matches(news)));
}

TEST(StoryQuery, BlankTermsAreNoConditionAndTheSeamIsNoText) {
    const StoryQuery blank{.anyTerms = {" ", ""}, .excludedTerms = {"\t"}};
    EXPECT_FALSE(blank.isEmpty());
    EXPECT_TRUE(blank.compiled().matches(titled("Anything")));
    const Story seam = titled("The new iPhone", "17 is here");
    EXPECT_FALSE(StoryQuery{.anyTerms = {"iPhone 17"}}.compiled().matches(seam));
    EXPECT_TRUE(StoryQuery{.anyTerms = {"iPhone \n 17"}}.compiled().matches(seam));
}

TEST(StoryQuery, TheMatchedTermIsTheFirstInTheQuerysOrderWhateverElseItAsks) {
    const StoryQuery query{.anyTerms = {"Watch", "Vision Pro", "iPad"},
                           .excludedTerms = {"ipad"},
                           .sourceIDs = {"other"}};
    EXPECT_EQ(query.compiled().matchedTerm(titled("iPad beside a VISION PRO")), "vision pro");
    EXPECT_FALSE(query.compiled().matchedTerm(titled("Mac")));
}

TEST(StoryQuery, AllKeysAreRequiredWhenReading) {
    const StoryQuery query{
        .anyTerms = {"a"}, .sourcings = {Sourcing::onRecord}, .includesSetAside = true};
    const auto value = encode(query);
    EXPECT_EQ(decode<StoryQuery>(value), query);
    for (const auto& pair : value.get_object()) {
        auto broken = value;
        broken.get_object().erase(pair.key());
        EXPECT_THROW(decode<StoryQuery>(broken), RecordError) << pair.key();
    }
}

}  // namespace
}  // namespace kit
