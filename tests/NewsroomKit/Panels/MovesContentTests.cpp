#include "NewsroomKit/Panels/MovesContent.h"

#include <deque>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kit {
namespace {

constexpr auto kFirstDay = std::chrono::sys_days(std::chrono::year(2026) / 11 / 2);

StockQuote yearWith(const std::vector<double>& closes, std::string symbol = "AAPL") {
    StockQuote year{.symbol = std::move(symbol), .name = "Apple", .range = "1y"};
    for (const auto close : closes) {
        year.points.push_back({kFirstDay + std::chrono::days(year.points.size()), close});
    }
    return year;
}

class Wire {
public:
    void add(std::string id, std::string title, int hours, Sourcing sourcing = Sourcing::report) {
        const auto& story =
            stories_.emplace_back(Story{.id = id,
                                        .link = "https://" + id + ".example/",
                                        .title = std::move(title),
                                        .publishedAt = kFirstDay + std::chrono::hours(hours),
                                        .sourceID = id,
                                        .sourceName = "Outlet " + id,
                                        .sourcing = sourcing});
        panel_.push_back({.story = &story, .isRead = id == "read"});
    }
    const std::vector<PanelStory>& stories() const { return panel_; }

private:
    std::deque<Story> stories_;
    std::vector<PanelStory> panel_;
};

TEST(MoveRows, AreLetteredFromTheEarliestAndSayHowUnusualTheyAre) {
    const auto year = yearWith({100, 100, 104, 104.5, 104, 104.5, 99});
    const auto rows = moveRows(year, recentMoves(year, kFirstDay), {}, {});
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].letter, "B");
    EXPECT_EQ(rows[0].move.day, "2026-11-08");
    EXPECT_EQ(rows[1].letter, "A");
    EXPECT_NEAR(rows[1].timesUsual.value(), 4 / rows[1].move.usual, 1e-9);
    EXPECT_TRUE(rows[1].reasons.empty());
    EXPECT_FALSE(
        moveRows(yearWith({1, 1, 1, 2}), recentMoves(yearWith({1, 1, 1, 2}), kFirstDay), {}, {})[0]
            .timesUsual)
        << "nothing is usual where nothing moves";

    const auto later = recentMoves(year, kFirstDay + std::chrono::hours(24 * 4));
    ASSERT_EQ(later.size(), 1u) << "moves of before are left out";
}

TEST(MoveRows, NameWhoGaveTheReasonFirstAndHowManyDid) {
    const auto year = yearWith({100, 100, 104});
    Wire wire;
    wire.add("late", "Court rules against Apple in antitrust lawsuit", 24 * 2 + 12);
    wire.add("read", "Apple loses antitrust lawsuit", 24 * 2 + 10, Sourcing::confirmed);
    wire.add("alone", "Apple sued by a maker of cables", 24 * 2 + 9);
    wire.add("plain", "Apple Watch has a lamp", 24 * 2 + 9);
    const std::vector<StoryCluster> clusters{{.id = "read", .storyIDs = {"read", "late"}}};
    const auto rows = moveRows(year, recentMoves(year, kFirstDay), wire.stories(), clusters);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].stories, 4u);
    ASSERT_EQ(rows[0].reasons.size(), 1u);
    const auto& reason = rows[0].reasons[0];
    EXPECT_EQ(reason.reason, MarketNews::Reason::legal);
    EXPECT_EQ(reason.lead.storyID, "read") << "not the earlier one that stands alone";
    EXPECT_TRUE(reason.lead.isRead);
    EXPECT_EQ(reason.sourcing, Sourcing::confirmed);
    EXPECT_EQ(reason.outlets, 3u);
    EXPECT_EQ(reason.stories.size(), 3u);
}

TEST(MoveRows, AskForStoriesOfTheCompanyInTheTimeOfAMoveOnly) {
    const auto year = yearWith({100, 100, 104});
    const auto moves = recentMoves(year, kFirstDay);
    const CompanyTopic topic(year);
    Wire wire;
    wire.add("in", "Apple rises", 24 * 2 + 12);
    wire.add("before", "Apple rises", 24);
    wire.add("other", "Nokia rises", 24 * 2 + 12);
    std::vector<bool> could;
    for (const auto& each : wire.stories())
        could.push_back(couldExplain(*each.story, topic, moves));
    EXPECT_EQ(could, (std::vector<bool>{true, false, false}));
}

}  // namespace
}  // namespace kit
