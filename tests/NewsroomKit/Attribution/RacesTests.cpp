#include <gtest/gtest.h>

#include <fmt/format.h>

#include "NewsroomKit/Attribution/Races.h"
#include "tests/NewsroomKit/Attribution/AttributionSamples.h"

namespace kit {
namespace {

std::string text(const std::vector<RaceRecord>& records) {
    std::string text;
    for (const auto& record : records) {
        text += fmt::format("{}{} {}/{}", text.empty() ? "" : "; ", record.outlet, record.led,
                            record.subjects);
        for (const auto& lead : record.leads) text += fmt::format(" {:+}", lead.seconds);
    }
    return text;
}

std::string text(const PairedRace& race) {
    return fmt::format("{} {} {} {}", race.race, race.leader.value_or("nobody"),
                       race.lead.value_or(0), rawValue(race.confidence));
}

std::vector<Race> racesAmong(const std::vector<Story>& stories,
                             const std::vector<std::vector<std::string>>& groups) {
    return racesOf(pointersTo(stories), groups, nullptr);
}

TEST(Races, WhoLedAndHowFarTheOthersCameAfter) {
    auto apple = toldBy("Apple Newsroom", "n", minute(0), Sourcing::confirmed);
    apple.isAppleSource = true;
    struct Case {
        const char* what;
        std::vector<Story> stories;
        std::string expected;
    };
    const auto early = toldBy("MacRumors", "a", minute(10));
    const auto late = toldBy("Wired", "b", minute(12));
    const Case cases[] = {
        {"two", {early, late}, "MacRumors 1/1 +120; Wired 0/1 -120"},
        {"one outlet alone", {early, toldBy("MacRumors", "b", minute(12))}, ""},
        {"an outlet's later story",
         {early, late, toldBy("Wired", "c", minute(90))},
         "MacRumors 1/1 +120; Wired 0/1 -120"},
        {"equal times", {early, toldBy("Wired", "b", minute(10))}, "MacRumors 0/1; Wired 0/1"},
        {"a day without a time",
         {toldBy("MacRumors", "a", kMonday), toldBy("Wired", "b", kMonday + std::chrono::days(1))},
         "MacRumors 0/1; Wired 0/1"},
        {"the credited outlet is not on the wire",
         {crediting(early, "Bloomberg", "https://www.bloomberg.com/lamp")},
         "Bloomberg 1/1; MacRumors 0/1"},
        {"the credited outlet's story came in later",
         {crediting(early, "Wired", "https://www.wired.com/lamp"), late},
         "Wired 1/1; MacRumors 0/1"},
        {"Apple's announcement", {apple, early, late}, "MacRumors 1/1 +120; Wired 0/1 -120"},
        {"Apple's announcement and one outlet", {apple, early}, ""},
    };
    for (const auto& c : cases) {
        const auto races = racesAmong(c.stories, {{"a", "b", "c", "n"}});
        EXPECT_EQ(text(raceRecords(races)), c.expected) << c.what;
    }
}

TEST(Races, TheMedianIsOverAllSubjectsWithTimes) {
    const auto races =
        racesAmong({toldBy("MacRumors", "a", minute(10)), toldBy("Wired", "b", minute(12)),
                    toldBy("MacRumors", "c", minute(50), Sourcing::report),
                    toldBy("Wired", "d", minute(40), Sourcing::report),
                    toldBy("MacRumors", "e", minute(70)), toldBy("Wired", "f", minute(74))},
                   {{"a", "b"}, {"c", "d"}, {"e", "f"}, {"gone"}});
    ASSERT_EQ(races.size(), 3u);
    EXPECT_EQ(races.front().id, "e") << "the latest first";
    const auto records = raceRecords(races);
    EXPECT_EQ(text(records), "MacRumors 2/3 +120 -600 +240; Wired 1/3 -120 +600 -240");
    EXPECT_EQ(records[0].medianLead, 120);
    EXPECT_EQ(records[0].ledBySourcing[static_cast<std::size_t>(Sourcing::rumor)], 2);
    EXPECT_EQ(records[1].ledBySourcing[static_cast<std::size_t>(Sourcing::report)], 1);
}

TEST(Races, TwoOutletsMeetWhereBothCoveredTheSubject) {
    const auto races = racesAmong(
        {toldBy("AppleInsider", "0", minute(1)), toldBy("MacRumors", "a", minute(10)),
         toldBy("Wired", "b", minute(12)), toldBy("MacRumors", "c", minute(50)),
         crediting(toldBy("Wired", "d", minute(40)), "MacRumors", "https://www.macrumors.com/lamp"),
         toldBy("MacRumors", "e", minute(70)), toldBy("Cnet", "f", minute(74))},
        {{"0", "a", "b"}, {"c", "d"}, {"e", "f"}});
    const auto pair = racePair(races, "wired", "MacRumors");
    ASSERT_EQ(pair.races.size(), 2u);
    EXPECT_EQ(text(pair.races[0]), "d MacRumors 0 stated") << "a credit outweighs the times";
    EXPECT_EQ(text(pair.races[1]), "0 MacRumors 120 timed") << "though a third one led";
    EXPECT_EQ(pair.led, (std::array<std::int64_t, 2>{0, 2}));
    EXPECT_EQ(pair.medianLeads[1], 120);
    EXPECT_FALSE(pair.medianLeads[0]);
    EXPECT_TRUE(racePair(races, "Wired", "Wired").races.empty());
}

}  // namespace
}  // namespace kit
