#include "NewsroomKit/Editorial/AppleOrigin.h"

#include <gtest/gtest.h>

#include <string>

namespace kit {
namespace {

TEST(AppleOrigin, aHeadlineMustBeginWithAppleSpeaking) {
    const struct {
        const char* title;
        bool onRecord;
    } cases[] = {
        {"apple confirms new feature", true},
        {"APPLE ANNOUNCES a date", true},
        {"Apple’s updates are out", true},
        {"Apple's  releases", true},
        {"Apple\u00A0says no", true},
        {"Apple is tightening rules", true},
        {"Apple moves to close a gap", true},
        {"Why Apple confirms things", false},
        {" Apple says", false},
        {"Apple saysay", false},
        {"Apple is building", false},
        {"Apples says", false},
        {"Ａpple says", false},
        {"", false},
    };
    for (const auto& [title, onRecord] : cases) {
        EXPECT_EQ(AppleOrigin::isAppleOnRecord(title, ""), onRecord) << title;
    }
}

TEST(AppleOrigin, anExcerptMayRelayAnAnnouncementOrAStatement) {
    const struct {
        const char* summary;
        bool onRecord;
    } cases[] = {
        {"Today Apple announced plans for a campus.", true},
        {"the company has confirmed that it closes", true},
        {"Apple has said that it closes", false},
        {"Apple announced a thing", false},
        {"Apple said in a press release", true},
        {"Apple shared via its short, sweet newsroom", false},
        {"Apple shared via its very short well-made newsroom", true},
        {"Apple shared via its one two three four newsroom", false},
        {"In a post on its site this morning, Apple said", true},
        {"In a post on its site. Then Apple said", false},
        {"In a statement to us, Apple\nconfirmed", true},
        {"Snapple announced plans", false},
        {"Apple announced plansible", false},
        {"", false},
    };
    for (const auto& [summary, onRecord] : cases) {
        EXPECT_EQ(AppleOrigin::isAppleOnRecord("News", summary), onRecord) << summary;
    }
}

TEST(AppleOrigin, headlineAndExcerptAreReadByTheirOwnRules) {
    EXPECT_FALSE(AppleOrigin::isAppleOnRecord("", "Apple says"));
    EXPECT_FALSE(AppleOrigin::isAppleOnRecord("the company announced plans", ""));
}

TEST(AppleOrigin, aStoryIsReadByTitleAndSummary) {
    Story story;
    story.title = "Why Apple confirms things";
    EXPECT_FALSE(AppleOrigin::isAppleOnRecord(story));
    story.summary = "Apple confirmed today";
    EXPECT_TRUE(AppleOrigin::isAppleOnRecord(story));
    EXPECT_EQ(AppleOrigin::explain(story.title, story.summary), RuleHit::Where::summary);
}

TEST(AppleOrigin, hostileLengthsNeitherCrashNorHideAStatement) {
    for (const std::string filler :
         {"x", " ", "Apple ", "Apple said in a ", "In a post on ", "\n"}) {
        std::string summary;
        while (summary.size() < 1'000'000) summary += filler;
        EXPECT_FALSE(AppleOrigin::isAppleOnRecord(summary, summary)) << filler;
        summary += ". Apple announced plans";
        EXPECT_TRUE(AppleOrigin::isAppleOnRecord("", summary)) << filler;
    }
}

}  // namespace
}  // namespace kit
