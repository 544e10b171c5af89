#include "NewsroomKit/Editorial/LabelReasons.h"

#include <gtest/gtest.h>

namespace kit {
namespace {

TEST(Explanation, saysInASentenceWhyAStoryHasItsKind) {
    const struct {
        const char* title;
        const char* summary;
        const char* text;
    } cases[] = {
        {"Mac deals", "", "Deal: the headline says “deals”."},
        {"Mac deals", "Revenue",
         "Coverage: the excerpt says “revenue”, which rules out the other kinds."},
        {"Good deal", "with you",
         "Coverage: the headline and excerpt together say “deal with”, which rules out the other "
         "kinds."},
        {"Mac news", "", "Coverage: the headline speaks of no other kind."},
    };
    for (const auto& [title, summary, text] : cases) {
        EXPECT_EQ(explanation(StoryKindRules::explain(title, summary)), text);
    }
}

TEST(Explanation, saysInASentenceHowAStoryIsSourced) {
    const struct {
        const char* title;
        const char* summary;
        bool fromApple;
        const char* text;
    } cases[] = {
        {"Reportedly a Mac", "", false, "Report: the headline says “reportedly”."},
        {"A Mac", "leaked", false, "Rumor: the excerpt says “leaked”."},
        {"Tim Cook says hi", "", false,
         "On the record: the headline names “tim cook” and says “says”."},
        {"A Mac", "", true, "Confirmed: it comes from Apple itself."},
        {"A Mac", "", false,
         "Unlabeled: neither the headline nor the excerpt's opening says how it is sourced."},
        {"Long-rumored Mac", "According to us", false,
         "Report: the excerpt says “according to”. Rumor phrases do not count, because the "
         "headline says “long-rumored”."},
    };
    for (const auto& [title, summary, fromApple, text] : cases) {
        EXPECT_EQ(explanation(SourcingRules::explain(title, summary, fromApple)), text);
    }
}

}  // namespace
}  // namespace kit
