#include <gtest/gtest.h>

#include <deque>

#include "NewsroomKit/Panels/BeatPreview.h"
#include "NewsroomKit/Panels/ProposedTerms.h"

namespace kit {
namespace {

using namespace std::chrono_literals;
using Terms = std::vector<std::string>;

TEST(ProposedTerms, NamesOfAHeadlineAreProposedWhateverItsStyle) {
    const std::pair<const char*, Terms> cases[] = {
        {"Apple's C2 modem will reach the iPad Air first, says Nordlicht Research",
         {"C2", "iPad Air", "Nordlicht Research"}},
        {"Apple Releases Third Beta of iOS 27 and visionOS 27 to All Developers",
         {"iOS 27", "visionOS 27"}},
        {"How the Vision Pro found a home in surgery", {"Vision Pro"}},
        {"iPhone 18 Pro Max: everything we know", {"iPhone 18 Pro Max"}},
        {"TSMC to build A20 chips in Arizona", {"TSMC", "A20", "Arizona"}},
        {"Sources say a delay is likely", {}},
        {"Qualcomm, Qualcomm and once more QUALCOMM", {"Qualcomm"}},
        {"Émile Brandt leaves Apple", {"Émile Brandt"}},
        {"\xFF\x01 \u202E,;", {}},
        {"", {}},
    };
    for (const auto& [title, terms] : cases) EXPECT_EQ(proposedTerms(title), terms) << title;
}

TEST(ProposedTerms, NamesThatSeveralHeadlinesShareAreProposedToAQuery) {
    const char* titles[] = {
        "TSMC to build A20 chips in Arizona", "A20 chips slip at TSMC",      "What the A20 means",
        "TSMC raises prices of the a20",      "Why iPhone 18 needs the A20", "iPhone 18 and TSMC",
        "Arizona once, iPhone 18 again"};
    std::deque<Story> stories;
    std::vector<PanelStory> wire;
    for (const auto* title : titles)
        wire.push_back({.story = &stories.emplace_back(Story{.title = title})});
    const std::pair<StoryQuery, std::vector<ProposedTerm>> cases[] = {
        {{}, {{"A20", 5}, {"TSMC", 4}, {"iPhone 18", 3}}},
        {{.anyTerms = {"iphone"}}, {{"A20", 5}, {"TSMC", 4}}},
        {{.anyTerms = {"iphone"}, .excludedTerms = {"tsmc"}}, {{"A20", 5}}},
    };
    for (const auto& [query, terms] : cases) EXPECT_EQ(proposedTerms(wire, query), terms);
}

class BeatPreviewTest : public ::testing::Test {
protected:
    void tell(std::string title, Instant::duration age, std::string summary = {}) {
        stories_.push_back({.id = std::to_string(stories_.size()),
                            .title = std::move(title),
                            .summary = std::move(summary),
                            .publishedAt = now_ - age});
    }
    BeatPreview of(const BeatDraft& draft) const {
        std::vector<PanelStory> scanned;
        for (const auto& story : stories_) {
            if (draft.scanned().compiled().matches(story)) scanned.push_back({.story = &story});
        }
        return beatPreview(draft, scanned, now_);
    }

    Instant now_ = Instant(1'800'000'000s);
    std::deque<Story> stories_;
};

TEST_F(BeatPreviewTest, StoriesAreCountedByDayByWordAndByWhatTheTypedWordAdds) {
    tell("A modem and TSMC", 1h);
    tell("TSMC again", 23h, "With its modem");
    tell("Two modems", 25h);
    tell("Quantum leap", 13 * 24h + 23h);
    tell("A modem too old", 14 * 24h);
    const auto preview = of({.query = {.anyTerms = {"modem", "TSMC"}}, .typed = " quantum "});
    EXPECT_EQ(preview.stories, 3u);
    EXPECT_EQ(preview.perDay.back(), 2u);
    EXPECT_EQ(preview.perDay.front(), 1u);
    ASSERT_EQ(preview.words.size(), 3u);
    EXPECT_EQ(preview.words[0].stories, 2u);
    EXPECT_EQ(preview.words[2].word, "quantum");
    ASSERT_TRUE(preview.gain);
    EXPECT_EQ(preview.gain->stories, 1u);
    ASSERT_TRUE(preview.otherForm) << "a plural is another word";
    EXPECT_EQ(preview.otherForm->word, "modems");
    EXPECT_EQ(preview.otherForm->stories, 1u);
    EXPECT_EQ(preview.otherFormOf, "modem");
    EXPECT_FALSE(preview.matches[1].marks.summary.empty());
}

TEST_F(BeatPreviewTest, AWordThatAloneFindsMostOfManyStoriesIsNamed) {
    for (int i = 0; i < 12; ++i) tell("The M6 again", 1h);
    for (int i = 0; i < 7; ++i) tell("The A20 again", 1h);
    const BeatDraft draft{.query = {.anyTerms = {"M6", "A20"}}};
    EXPECT_FALSE(of(draft).tooMuch) << "19 are not many";
    tell("M6 and A20", 1h);
    ASSERT_TRUE(of(draft).tooMuch);
    EXPECT_EQ(of(draft).tooMuch->word, "M6");
    EXPECT_EQ(of(draft).tooMuch->stories, 12u);
    EXPECT_FALSE(of({.query = {.anyTerms = {"M6"}}}).tooMuch) << "it has no other word";
}

}  // namespace
}  // namespace kit
