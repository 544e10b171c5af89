#include <gtest/gtest.h>

#include "Tarnwick_Brell/Desk/SourceOverview.h"

namespace app {
namespace {

SourceLine overviewLine(const std::string& name, kit::NewsSource::Category category) {
    return {.source = {.id = name,
                       .name = name,
                       .feedURL = "https://" + name + ".example/feed",
                       .category = category},
            .isOn = true};
}

class SourceOverviewTest : public ::testing::Test {
protected:
    void SetUp() override {
        using enum kit::NewsSource::Category;
        lines_ = {overviewLine("Tide", press), overviewLine("anchor", apple),
                  overviewLine("Pier", press), overviewLine("Quay", custom)};
        lines_[0].health.latency = 900;
        lines_[2].health.latency = 200;
        lines_[2].status.lastError = "The server answered 503.";
        lines_[1].status.lastError = "The server answered 404.";
        lines_[1].isOn = false;
        lines_[3].source.kind = kit::NewsSource::Kind::custom;
    }

    std::string shown(const SourceChoice& choice) const {
        std::string names;
        for (const auto place : chosenSources(lines_, choice))
            names += lines_[place].source.name + ' ';
        return names;
    }

    std::vector<SourceLine> lines_;
};

TEST_F(SourceOverviewTest, SourcesThatFailComeFirstUnlessTheyAreOff) {
    EXPECT_EQ(shown({}), "Pier anchor Tide Quay ");
}

TEST_F(SourceOverviewTest, AnOrderIgnoresCaseAndLeavesWhatIsUnknownAtTheEnd) {
    EXPECT_EQ(shown({.order = SourceOrder::name}), "anchor Pier Quay Tide ");
    EXPECT_EQ(shown({.order = SourceOrder::latency}), "Pier Tide anchor Quay ");
    EXPECT_EQ(shown({.order = SourceOrder::latency, .isReversed = true}), "Tide Pier anchor Quay ");
}

TEST_F(SourceOverviewTest, SubsetsAndWordsNarrowTheTable) {
    EXPECT_EQ(shown({.subset = SourceSubset::failing}), "Pier ");
    EXPECT_EQ(shown({.subset = SourceSubset::own}), "Quay ");
    EXPECT_EQ(shown({.words = "PRESS  tide"}), "Tide ") << "a group's name and a source's";
    EXPECT_EQ(shown({.words = "quay.example"}), "Quay ");
    EXPECT_EQ(shown({.words = "tide pier"}), "");
    EXPECT_EQ(shown({.group = kit::NewsSource::Category::apple}), "anchor ");
}

TEST(TryHistory, FailuresInARowAreOneEntryAndASpanTellsItsMostNotableFetch) {
    using enum SourceTry::Outcome;
    const auto now = kit::parseISO8601("2026-11-20T12:00:00Z").value();
    const auto before = [&](int minutes) { return now - std::chrono::minutes(minutes); };
    const auto history = tryHistory(
        {
            {.at = now - std::chrono::days(8), .outcome = failed, .reason = "Long ago."},
            {.at = before(300), .outcome = news, .added = 2},
            {.at = before(290), .outcome = unchanged},
            {.at = before(50), .outcome = failed, .reason = "503."},
            {.at = before(40), .outcome = failed, .reason = "503."},
            {.at = before(30), .outcome = failed, .reason = "404."},
            {.at = before(20), .outcome = full},
            {.at = before(10), .outcome = failed, .reason = "404."},
        },
        now);
    EXPECT_EQ(history.tries, 7);
    EXPECT_EQ(history.failed, 4);
    EXPECT_EQ(history.failures, (std::vector<FailureRun>{{before(10), before(10), 1, "404."},
                                                         {before(30), before(30), 1, "404."},
                                                         {before(50), before(40), 2, "503."}}));
    ASSERT_EQ(history.spans.size(), 84u);
    using Tried = TrySpan::Kind;
    EXPECT_EQ(history.spans[83], (TrySpan{before(120), Tried::failed, 5, 4, 0}));
    EXPECT_EQ(history.spans[82].kind, Tried::none);
    EXPECT_EQ(history.spans[81], (TrySpan{before(360), Tried::news, 2, 0, 2}));
}

}  // namespace
}  // namespace app
