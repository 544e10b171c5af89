#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "Tarnwick_Brell/Newsrooms/BeatAlerts.h"

namespace {

using namespace app;
using kit::PanelKind;
using kit::Story;

BeatShelf beatsOf(const std::vector<std::pair<std::string, bool>>& termsAndAlerts) {
    BeatShelf shelf;
    for (const auto& [term, alerts] : termsAndAlerts)
        shelf.put(kit::madeBeat(term, "bolt", {.anyTerms = {term}}, alerts));
    return shelf;
}

NewsroomShelf newsroomOf(PanelKind kind, bool alerts) {
    auto spec = kit::madeNewsroom("Desk", "bolt", std::array{kind}, {});
    spec.panels[0].options.alerts = alerts;
    NewsroomShelf shelf;
    shelf.put(spec);
    return shelf;
}

std::string told(const BeatAlerts& alerts, const std::vector<Story>& news) {
    std::string text;
    const auto sorted = alerts.sort(news);
    for (const auto& match : sorted.matches) {
        text += match.name + ":";
        for (const auto& story : match.announcement.stories) text += " " + story.title;
        text += ";";
    }
    text += " others:";
    for (const auto& story : sorted.others) text += " " + story.title;
    return text;
}

TEST(BeatsWithAlerts, TellEachStoryOnceUnderTheFirstThatAsksForIt) {
    const std::vector<Story> news{{.title = "chips and glass"},
                                  {.title = "glass"},
                                  {.title = "chips"},
                                  {.title = "wool"},
                                  {.title = "press note", .isAppleSource = true},
                                  {.title = "chips on sale", .kind = kit::StoryKind::deal}};
    const std::string all = "chips and glass glass chips wool press note chips on sale";
    const struct {
        BeatShelf beats;
        NewsroomShelf newsrooms;
        std::string told;
    } cases[] = {
        {beatsOf({{"chips", true}, {"glass", true}}),
         {},
         "chips: chips and glass chips;glass: glass; others: wool press note chips on sale"},
        {beatsOf({{"chips", false}, {"glass", true}}),
         {},
         "glass: chips and glass glass; others: chips wool press note chips on sale"},
        {beatsOf({{"silk", true}}), {}, " others: " + all},
        {beatsOf({{"wool", true}}), newsroomOf(PanelKind::stream, true),
         "wool: wool;Desk – Latest: chips and glass glass chips press note; others: chips on sale"},
        {{},
         newsroomOf(PanelKind::apple, true),
         "Desk – From Apple: press note; others: chips and glass glass chips wool chips on sale"},
        {{}, newsroomOf(PanelKind::stream, false), " others: " + all},
        {{}, newsroomOf(PanelKind::stock, true), " others: " + all},
    };
    for (const auto& row : cases)
        EXPECT_EQ(told(BeatAlerts(row.beats, row.newsrooms), news), row.told);
}

TEST(BeatsWithAlerts, AreToldApartFromPanelsByTheirNewsroom) {
    const auto newsrooms = newsroomOf(PanelKind::stream, true);
    const auto matches = BeatAlerts(beatsOf({{"chips", true}}), newsrooms)
                             .sort({{.title = "chips"}, {.title = "glass"}})
                             .matches;
    ASSERT_EQ(matches.size(), 2u);
    EXPECT_EQ(matches[0].newsroomID, "");
    EXPECT_EQ(matches[1].newsroomID, newsrooms.entries().at(0).id);
}

TEST(BeatsWithAlerts, TellACrowdAsOne) {
    const std::vector<Story> news(Announcement::kMostOneByOne + 5, Story{.title = "chips"});
    const auto [matches, others] = BeatAlerts(beatsOf({{"chips", true}}), {}).sort(news);
    ASSERT_EQ(matches.size(), 1u);
    EXPECT_EQ(matches[0].announcement.total, news.size());
    EXPECT_TRUE(matches[0].announcement.isSummary());
    EXPECT_EQ(matches[0].announcement.stories.size(), Announcement::kMostOneByOne);
    EXPECT_TRUE(others.empty()) << "those that the summary only counts are told too";
}

}  // namespace
