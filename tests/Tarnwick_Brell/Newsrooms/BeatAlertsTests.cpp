#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "Tarnwick_Brell/Newsrooms/BeatAlerts.h"

namespace {

using namespace app;
using kit::PanelAlert;
using kit::PanelKind;
using kit::Story;

BeatRecords beatsOf(const std::vector<std::pair<std::string, bool>>& termsAndAlerts) {
    BeatRecords records;
    for (const auto& [term, alerts] : termsAndAlerts)
        records.put(kit::madeBeat(term, "bolt", {.anyTerms = {term}}, alerts));
    return records;
}

NewsroomRecords newsroomOf(PanelKind kind, kit::PanelOptions options) {
    auto spec = kit::madeNewsroom("Desk", "bolt", std::array{kind}, {});
    spec.panels[0].options = std::move(options);
    NewsroomRecords records;
    records.put(spec);
    return records;
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
        BeatRecords beats;
        NewsroomRecords newsrooms;
        std::string told;
    } cases[] = {
        {beatsOf({{"chips", true}, {"glass", true}}),
         {},
         "chips: chips and glass chips;glass: glass; others: wool press note chips on sale"},
        {beatsOf({{"chips", false}, {"glass", true}}),
         {},
         "glass: chips and glass glass; others: chips wool press note chips on sale"},
        {beatsOf({{"silk", true}}), {}, " others: " + all},
        {beatsOf({{"wool", true}}), newsroomOf(PanelKind::stream, {.alerts = true}),
         "wool: wool;Desk – Latest: chips and glass glass chips press note; others: chips on sale"},
        {{},
         newsroomOf(PanelKind::apple, {.alerts = true}),
         "Desk – From Apple: press note; others: chips and glass glass chips wool chips on sale"},
        {{}, newsroomOf(PanelKind::stream, {.alerts = false}), " others: " + all},
        {{}, newsroomOf(PanelKind::stock, {.alerts = true}), " others: " + all},
    };
    for (const auto& row : cases)
        EXPECT_EQ(told(BeatAlerts(row.beats, row.newsrooms), news), row.told);
}

TEST(BeatsWithAlerts, AreToldApartFromPanelsByTheirNewsroom) {
    const auto newsrooms = newsroomOf(PanelKind::stream, {.alerts = true});
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

TEST(PanelsWithAlerts, AskForTheNewsOfTheirKind) {
    const std::pair<PanelKind, PanelAlert> cases[] = {
        {PanelKind::status, PanelAlert::serviceStatus}, {PanelKind::software, PanelAlert::releases},
        {PanelKind::releases, PanelAlert::releases},    {PanelKind::records, PanelAlert::records},
        {PanelKind::backend, PanelAlert::backend},      {PanelKind::pageWatch, PanelAlert::pages},
        {PanelKind::stock, PanelAlert::none},
    };
    const PanelAlert all[] = {PanelAlert::serviceStatus, PanelAlert::releases, PanelAlert::records,
                              PanelAlert::backend, PanelAlert::pages};
    for (const auto& [kind, alert] : cases) {
        const auto on = newsroomOf(kind, {.alerts = true});
        const auto off = newsroomOf(kind, {.alerts = false});
        for (const auto asked : all) {
            EXPECT_EQ(panelAskingFor(asked, on).has_value(), asked == alert) << rawValue(kind);
            EXPECT_FALSE(panelAskingFor(asked, off)) << rawValue(kind);
        }
    }
}

TEST(PanelsWithAlerts, AskForReleasesOfThePlatformsThatTheyShow) {
    const auto records = newsroomOf(PanelKind::software, {.alerts = true, .platforms = {"tvOS"}});
    EXPECT_TRUE(panelAskingForRelease("tvOS", records));
    EXPECT_FALSE(panelAskingForRelease("iOS", records));
    EXPECT_FALSE(panelAskingForRelease("tvOS", newsroomOf(PanelKind::status, {.alerts = true})));
}

TEST(PanelsWithAlerts, AskForTheSignalsThatTheyShow) {
    using kit::SignalKind;
    const std::string followed = "https://www.apple.com/legal/";
    const kit::Signal page{
        .kind = SignalKind::page, .link = followed, .weight = kit::SignalWeight::notable};
    auto other = page;
    other.link = "https://www.apple.com/privacy/";
    auto routine = page;
    routine.weight = kit::SignalWeight::routine;
    auto filing = page;
    filing.kind = SignalKind::filing;
    auto signing = page;
    signing.kind = SignalKind::signing;
    const struct {
        PanelKind kind;
        std::vector<std::string> pages;
        const kit::Signal& signal;
        bool isAsked;
    } cases[] = {
        {PanelKind::pageWatch, {followed}, page, true},
        {PanelKind::pageWatch, {followed}, other, false},
        {PanelKind::pageWatch, {}, other, true},
        {PanelKind::pageWatch, {followed}, routine, false},
        {PanelKind::pageWatch, {}, filing, false},
        {PanelKind::records, {}, filing, true},
        {PanelKind::records, {}, signing, false},
        {PanelKind::backend, {}, page, true},
        {PanelKind::backend, {}, filing, false},
        {PanelKind::status, {}, page, false},
    };
    for (const auto& c : cases) {
        const auto panel = newsroomOf(c.kind, {.alerts = true, .pages = c.pages});
        EXPECT_EQ(panelAskingForSignal(c.signal, panel).has_value(), c.isAsked)
            << rawValue(c.kind) << " " << rawValue(c.signal.kind);
    }
}

}  // namespace
