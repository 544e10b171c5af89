#include "NewsroomKit/Editorial/StoryKindRules.h"

#include <gtest/gtest.h>

#include <string>

#include "NewsroomKit/Editorial/PhraseTables.h"

namespace kit {
namespace {

struct Case {
    const char* title;
    const char* summary;
    StoryKind kind;
};

void expectKinds(std::initializer_list<Case> cases) {
    for (const auto& [title, summary, kind] : cases) {
        EXPECT_EQ(StoryKindRules::classify(title, summary), kind) << title << " | " << summary;
    }
}

TEST(StoryKindRules, theHeadlineGivesTheKind) {
    expectKinds({
        {"iPhone 16 Pro deals: save $200 at Amazon", "", StoryKind::deal},
        {"Save 20% off", "", StoryKind::deal},
        {"50 percent off cases", "", StoryKind::deal},
        {"Cases 50 Percent Offline", "", StoryKind::coverage},
        {"SAVE £30 today", "", StoryKind::deal},
        {"Dealing with iOS bugs", "", StoryKind::coverage},
        {"Apple’s new iPad reviewed", "", StoryKind::review},
        {"Hands–on with the new Mac", "", StoryKind::review},
        {"Our ＲＥＶＩＥＷ of the Magic Mouse", "", StoryKind::review},
        {"The week's round-up", "", StoryKind::roundup},
        {"New case [Sponsored]", "", StoryKind::sponsored},
        {"Try this #adventure", "", StoryKind::sponsored},
        {"Native ad for cables", "", StoryKind::advertisement},
        {"Cables (ad)", "", StoryKind::advertisement},
        {"Apple opens a store", "A review of the deals, sponsored", StoryKind::coverage},
        {"", "", StoryKind::coverage},
    });
}

TEST(StoryKindRules, anEarlierTableWins) {
    expectKinds({
        {"Deal roundup: cables", "", StoryKind::deal},
        {"Sponsored review", "", StoryKind::review},
        {"Review roundup", "", StoryKind::review},
        {"Sponsored news roundup", "", StoryKind::roundup},
        {"Advertisement, sponsored", "", StoryKind::sponsored},
    });
}

TEST(StoryKindRules, businessNewsInHeadlineOrExcerptStaysCoverage) {
    expectKinds({
        {"Apple's App Store review process changes", "", StoryKind::coverage},
        {"The best Mac deals", "Before earnings on Thursday", StoryKind::coverage},
        {"Best deal", "Counterearningsmonger", StoryKind::coverage},
        {"Ad campaign review", "", StoryKind::coverage},
        {"A great deal", "with a school", StoryKind::coverage},
        {"A great deal ", "with a school", StoryKind::deal},
        {"A great deal", " with a school", StoryKind::deal},
        {"A great deal—", "with a school", StoryKind::deal},
        {"Mac deals and app", "review", StoryKind::coverage},
        {"A deal without a seam", "", StoryKind::coverage},
    });
}

TEST(StoryKindRules, theExclusionsReadTheWholeExcerpt) {
    std::string summary(100'000, 'x');
    summary.append(" antitrust");
    EXPECT_EQ(StoryKindRules::classify("Mac deals", summary), StoryKind::coverage);
}

TEST(StoryKindRules, theReasonNamesTheEarliestPhraseOfTheTableAndItsPlace) {
    const auto why = [](const char* title, const char* summary) {
        return StoryKindRules::explain(title, summary).why;
    };
    using Where = RuleHit::Where;
    EXPECT_EQ(why("Cheapest deals", ""), (RuleHit{"deal phrases", "deals", Where::title}));
    EXPECT_EQ(why("Deals", "revenue, earnings"),
              (RuleHit{"kind exclusions", "earnings", Where::summary}));
    EXPECT_EQ(why("A great deal", "with it"),
              (RuleHit{"kind exclusions", "deal with", Where::titleAndSummary}));
    EXPECT_EQ(why("Deal with it", "deal with it"),
              (RuleHit{"kind exclusions", "deal with", Where::title}));
    EXPECT_EQ(why("Plain news", "with deals"), std::nullopt);
}

}  // namespace
}  // namespace kit
