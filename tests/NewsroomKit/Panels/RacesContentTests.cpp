#include <gtest/gtest.h>

#include <fmt/format.h>

#include "NewsroomKit/Panels/LedgerContent.h"
#include "NewsroomKit/Panels/RacesContent.h"
#include "tests/NewsroomKit/Attribution/AttributionSamples.h"

namespace kit {
namespace {

constexpr int kMinutesADay = 1440;

/// Told by MacRumors on that day and by Wired so many minutes later.
std::vector<Story> subject(int day, int lead, Sourcing sourcing = Sourcing::rumor) {
    const auto id = std::to_string(day);
    return {toldBy("MacRumors", "m" + id, minute(day * kMinutesADay), sourcing),
            toldBy("Wired", "w" + id, minute(day * kMinutesADay + lead), sourcing)};
}

std::vector<Race> someRaces() {
    std::vector<Story> stories;
    std::vector<std::vector<std::string>> groups;
    for (const auto& [day, lead] : {std::pair{0, 30}, std::pair{80, 240}, std::pair{89, 60}}) {
        const auto told = subject(day, lead, day == 80 ? Sourcing::report : Sourcing::rumor);
        stories.insert(stories.end(), told.begin(), told.end());
        groups.push_back({told[0].id, told[1].id});
    }
    auto third = toldBy("Cnet", "c", minute(89 * kMinutesADay + 90));
    stories.push_back(third);
    groups.back().push_back(third.id);
    return racesOf(pointersTo(stories), groups, nullptr);
}

std::string text(const RacesContent& content) {
    std::string text = std::to_string(content.races);
    for (const auto& row : content.rows) {
        text += fmt::format("; {} {}/{}", row.record.outlet, row.record.led, row.record.subjects);
        for (std::size_t i = 0; i < row.bars.size(); ++i) {
            if (row.bars[i] != 0) text += fmt::format(" {}:{}", i, row.bars[i]);
        }
    }
    return text;
}

TEST(RacesContent, KeepsTheTimeAndTheSourcingAndDrawsFullBarsFromTwoHours) {
    const auto races = someRaces();
    const auto now = minute(90 * kMinutesADay);
    struct Case {
        const char* what;
        RacesFilter filter;
        std::string expected;
    };
    const Case cases[] = {
        {"all", {}, "3; MacRumors 3/3 0:0.25 23:1 25:0.5; Wired 0/3 0:-0.25 23:-1 25:-0.5"},
        {"seven days", {.span = std::chrono::days(7)}, "1; MacRumors 1/1 22:0.5"},
        {"reports", {.sourcing = Sourcing::report}, "1; MacRumors 1/1 23:1"},
        {"denied by nobody", {.sourcing = Sourcing::confirmed}, "0"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(text(racesContent(races, c.filter, now)), c.expected) << c.what;
    EXPECT_FALSE(racesContent(races, {.picked = {"Wired"}}, now).pair);
    const auto pair = racesContent(races, {.picked = {"Wired", "Cnet"}}, now).pair;
    ASSERT_TRUE(pair);
    EXPECT_EQ(pair->led, (std::array<std::int64_t, 2>{1, 0}));
}

TEST(LedgerContent, FewClaimsMakeNoSharesAndTheFilterKeepsTheLatestFirst) {
    std::vector<Story> stories;
    for (int i = 0; i < 10; ++i)
        stories.push_back(toldBy("MacRumors", "m" + std::to_string(i), minute(i)));
    stories.push_back(toldBy("Wired", "w", minute(20)));
    std::vector<PanelStory> shown;
    for (const auto& story : stories) shown.push_back({.story = &story});
    const auto ledger = ledgerOf({.stories = shown, .now = minute(100)});
    const auto all = ledgerContent(ledger, {});
    ASSERT_EQ(all.outlets.size(), 1u);
    EXPECT_EQ(all.outlets[0].outlet, "MacRumors");
    ASSERT_EQ(all.lesser.size(), 1u);
    EXPECT_EQ(all.claims.size(), 11u);
    EXPECT_EQ(all.claims.front().claim.story, "w");
    EXPECT_EQ(all.claims.front().story.title, stories.back().title);
    EXPECT_EQ(ledgerContent(ledger, {.outlet = "macrumors"}).claims.size(), 10u);
    EXPECT_EQ(ledgerContent(ledger, {.state = LedgerClaim::State::denied}).claims.size(), 0u);
}

}  // namespace
}  // namespace kit
