#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "NewsroomKit/Trackers/Releases/ReleaseSignals.h"
#include "NewsroomKit/Trackers/Status/ServiceSignals.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {
namespace {

using kit::AppleServiceStatus;
using kit::Instant;
using kit::StatusFeed;
using Services = AppleServiceStatus::Services;
using Lines = std::vector<std::string>;

Instant at(int second) { return Instant(std::chrono::seconds(second)); }

std::string text(const std::optional<Instant>& instant) {
    return instant ? std::to_string(static_cast<int>(kit::secondsSince1970(*instant))) : "-";
}

AppleServiceStatus::Incident incident(const char* status, int started,
                                      std::optional<int> ended = {}, const char* message = "slow") {
    return {.kind = "Issue",
            .status = status,
            .message = message,
            .started = at(started),
            .ended = ended ? std::optional(at(*ended)) : std::nullopt};
}

/// What signals of trackers and of histories have in common, in the order of their ids.
Lines told(const std::vector<kit::Signal>& all) {
    Lines lines;
    for (const auto& signal : all)
        lines.push_back(signal.id + " " + signal.title + " " + text(signal.happenedAt) + " seen " +
                        text(signal.seenAt) + " " + std::string(rawValue(signal.weight)));
    std::ranges::sort(lines);
    return lines;
}

class TrackerLogsTest : public ::testing::Test {
protected:
    void record(int now, const Services& services, StatusFeed audience = StatusFeed::consumer) {
        store_.incidents().record(audience, services, at(now));
    }

    /// Service, message, Apple's two times, the desk's three.
    Lines log(std::string_view wanted = "") {
        Lines lines;
        for (const auto& logged : store_.incidents().find(wanted, 10)) {
            lines.push_back(logged.service + " " + logged.message + " " + text(logged.started) +
                            ".." + text(logged.ended) + " seen " + text(logged.firstSeen) + ".." +
                            text(logged.lastSeen) + ".." + text(logged.endedSeen));
        }
        return lines;
    }

    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
};

TEST_F(TrackerLogsTest, AnIncidentIsLoggedOnceForEachTimeItIsOngoing) {
    record(100, {{"Mail", {incident("ongoing", 90)}}, {"Maps"}});
    record(200, {{"Mail", {incident("ongoing", 90, 500, "slower")}}, {"Maps"}});
    EXPECT_EQ(log(), (Lines{"Mail slower 90..500 seen 100..200..-"}));
    record(300, {{"Mail", {incident("resolved", 90, 280)}}, {"Maps"}});
    record(400, {{"Mail", {incident("resolved", 90, 280)}}, {"Maps"}});
    EXPECT_EQ(log(), (Lines{"Mail slower 90..280 seen 100..200..300"}));
    record(500, {{"Mail", {incident("ongoing", 90)}}, {"Maps"}});
    record(600, {{"Mail"}, {"Maps"}});
    EXPECT_EQ(log(), (Lines{"Mail slow 90..- seen 500..500..600",
                            "Mail slower 90..280 seen 100..200..300"}));
}

TEST_F(TrackerLogsTest, AnIncidentEndsWithItsServiceButNotWithThatOfOthers) {
    record(100, {{"Mail", {incident("ongoing", 90)}}});
    record(200, {{"Mail"}}, StatusFeed::developer);
    record(300, {{"Mail", {incident("ongoing", 90), incident("resolved", 90)}}});
    EXPECT_EQ(log(), (Lines{"Mail slow 90..- seen 100..300..-"}));
    record(400, {{"Maps"}});
    EXPECT_EQ(log(), (Lines{"Mail slow 90..- seen 100..300..400"}));
}

TEST_F(TrackerLogsTest, WhatCameAndWentUnseenIsNotedAndWhatIsAnnouncedIsNot) {
    const Services services{
        {"Mail", {incident("Resolved", 50), incident("upcoming", 70, 100, "down")}},
        {"Maps",
         {incident("upcoming", 900), incident("upcoming", 80), incident("upcoming", 90, 300)}}};
    record(100, services);
    record(200, services);
    EXPECT_EQ(log(), (Lines{"Mail down 70..100 seen 100..100..100",
                            "Mail slow 50..- seen 100..100..100"}));
}

TEST_F(TrackerLogsTest, TheLogIsSearchedForTheTextAsItStands) {
    record(100, {{"Mail", {incident("ongoing", 1, {}, "100% of users")}},
                 {"Maps_2", {incident("ongoing", 2, {}, "back\\slash")}},
                 {"Music", {incident("ongoing", 3, {}, "quiet")}}});
    const std::pair<const char*, std::size_t> cases[] = {
        {"", 3}, {"mAi", 1}, {"0%", 1}, {"s_2", 1}, {"k\\s", 1}, {"%", 1}, {"_", 1}, {"a_l", 0}};
    for (const auto& [wanted, count] : cases) EXPECT_EQ(log(wanted).size(), count) << wanted;
}

TEST_F(TrackerLogsTest, EachBuildHasItsTimeUntilAnotherTakesItsPlace) {
    const auto record = [&](int now, const char* general, const char* beta) {
        kit::PlatformRelease platform{.platform = "iOS"};
        if (general) platform.current = kit::SoftwareRelease{.build = general};
        if (beta) platform.beta = kit::SoftwareRelease{.build = beta};
        store_.builds().record({platform}, at(now));
    };
    record(1, "A", "B");
    record(2, "A", nullptr);
    record(3, "C", "B");
    record(4, "A", "B");
    Lines lines;
    for (const auto& seen : store_.builds().newest(10)) {
        lines.push_back(std::string(rawValue(seen.channel)) + " " + seen.release.build + " " +
                        text(seen.firstSeen) + ".." + text(seen.replacedAt));
    }
    EXPECT_EQ(lines, (Lines{"public A 4..-", "public C 3..4", "beta B 1..-", "public A 1..3"}));
}

TEST_F(TrackerLogsTest, APastReadFromHistoriesIsWhatTheTrackersLogged) {
    const std::vector<Services> statuses{
        {{"Mail"}, {"Maps"}},
        {{"Mail", {incident("ongoing", 90)}}, {"Maps", {incident("resolved", 50, 60)}}},
        {{"Mail", {incident("resolved", 90, 280), incident("ongoing", 95)}}, {"Maps"}},
        {{"Mail"}, {"Maps"}}};
    const auto release = [](const char* build) {
        return std::vector{kit::PlatformRelease{.platform = "iOS",
                                                .current = kit::SoftwareRelease{.build = build}}};
    };
    const std::vector releases{release("A"), release("B"), release("B"), release("C")};
    std::vector<kit::Signal> logged;
    for (int i = 0; i < 4; ++i) {
        const auto at = [i](const auto& answers) { return answers[static_cast<std::size_t>(i)]; };
        const auto now = Instant(std::chrono::hours(30 * (i + 1)));
        store_.incidents().record(StatusFeed::consumer, at(statuses), now);
        store_.builds().record(at(releases), now);
        if (i == 0) continue;
        const auto before = [i](const auto& answers) {
            return std::optional(answers[static_cast<std::size_t>(i - 1)]);
        };
        std::ranges::move(kit::signalsOf(before(statuses), at(statuses), StatusFeed::consumer, now),
                          std::back_inserter(logged));
        std::ranges::move(kit::signalsOf(before(releases), at(releases), now),
                          std::back_inserter(logged));
    }
    auto past = kit::pastSignals(store_.incidents().find("", 99));
    std::ranges::move(kit::pastSignals(store_.builds().newest(99)), std::back_inserter(past));
    EXPECT_EQ(told(past), told(logged));
    EXPECT_EQ(logged.size(), 7u);
}

TEST_F(TrackerLogsTest, OnlyTheCopiesAskedForLastStay) {
    auto& copies = store_.trackerCopies();
    for (const int second : {3, 1, 2}) {
        const auto name = "quote/" + std::to_string(second);
        copies.store(name, {"{}", at(second)});
        copies.setHealth(name, {.lastAttempt = at(second)});
    }
    copies.store("quotes", {"{}", at(0)});
    copies.dropAllButLatest("quote/", 2);
    for (const auto& [name, stays] :
         {std::pair{"quote/1", false}, {"quote/2", true}, {"quote/3", true}, {"quotes", true}}) {
        EXPECT_EQ(copies.find(name).has_value(), stays) << name;
    }
}

}  // namespace
}  // namespace app
