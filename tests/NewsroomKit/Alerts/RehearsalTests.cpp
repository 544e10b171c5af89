#include "NewsroomKit/Alerts/Rehearsal.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "NewsroomKit/Alerts/SeenClusters.h"
#include "tests/NewsroomKit/Alerts/SampleAlerts.h"

namespace kit {
namespace {

using samples::alertMinute;
using samples::eventOf;
using samples::kNoBeats;
using samples::newsSignal;
using samples::newsStory;
using samples::ruleOn;
using std::chrono::hours;

constexpr int kDay = 24 * 60;

std::string eventsOf(const Rehearsal& rehearsal) {
    std::string text;
    for (const auto& told : rehearsal.told) {
        text += fmt::format("{} {}", told.match.match.event,
                            told.toldAt ? rawValue(told.how) : std::string_view("held"));
        text += told.match.why ? fmt::format(" {};", rawValue(*told.match.why)) : ";";
    }
    return text;
}

TEST(Rehearsals, CountByDayAndShowTheNewestFirst) {
    std::vector<AlertEvent> events;
    for (const int at : {0, 10, 3 * kDay, 4 * kDay - 1})
        events.push_back(eventOf(newsStory(std::to_string(at), "M6"), alertMinute(at)));
    events.push_back(eventOf(newsStory("0", "M6 again"), alertMinute(4 * kDay - 1)));
    auto rule = ruleOn(StoriesTrigger{.query = {.anyTerms = {"m6"}}}, {.minutes = 30});
    rule.on = false;
    const auto rehearsal = rehearse(rule, kNoBeats, events, {}, {}, alertMinute(4 * kDay), 4);
    EXPECT_EQ(eventsOf(rehearsal),
              "story|5759 notified;story|4320 notified;story|10 summary minutes;story|0 notified;");
    EXPECT_EQ(rehearsal.perDay, (std::vector<std::size_t>{2, 0, 0, 2}));
    EXPECT_EQ(rehearsal.total, 4u);
    EXPECT_EQ(rehearsal.count.atOnce, 3u);
    EXPECT_EQ(rehearsal.count.heldBack, 1u);
}

TEST(Rehearsals, OfRulesThatMatchEverythingKeepCountingBeyondWhatTheyShow) {
    std::vector<AlertEvent> events;
    for (int i = 0; i < 5'000; ++i)
        events.push_back(eventOf(newsStory(std::to_string(i), "News"), alertMinute(i)));
    const auto rehearsal =
        rehearse(ruleOn(StoriesTrigger{}), kNoBeats, events, {}, {}, alertMinute(4'999), 4);
    EXPECT_EQ(rehearsal.total, 5'000u);
    EXPECT_EQ(rehearsal.told.size(), Rehearsal::kMostShown);
    EXPECT_EQ(rehearsal.told.front().match.event, 4'999u);
    EXPECT_EQ(rehearsal.aDay(), 1'250);
    EXPECT_EQ(rehearsal.count.overCap + rehearsal.count.atOnce, 5'000u);
}

/// A cluster is told once, with the event that brings the last outlet that was wanted.
TEST(Rehearsals, TellAClusterOnce) {
    std::vector<AlertEvent> events;
    StoryCluster cluster;
    for (int i = 0; i < 6; ++i) {
        auto story = newsStory(std::to_string(i), "M6");
        story.sourceID = story.sourceName = fmt::format("outlet {}", i / 2);
        cluster.storyIDs.push_back(story.id);
        events.push_back(eventOf(std::move(story), alertMinute(i * 60)));
    }
    events[2].arrival = AlertArrival::bulk;
    const std::vector clusters{cluster};
    const std::pair<int, std::string_view> cases[] = {
        {1,
         "story|5 notified;story|4 notified;story|3 notified;story|1 notified;story|0 notified;"},
        {2, "story|3 notified;"},
        {3, "story|4 notified;"},
        {4, ""}};
    for (const auto& [outlets, expected] : cases) {
        const auto rehearsal = rehearse(ruleOn(StoriesTrigger{.outlets = outlets}), kNoBeats,
                                        events, clusters, {}, alertMinute(kDay), 1);
        EXPECT_EQ(eventsOf(rehearsal), expected) << outlets;
    }
}

class RandomPast {
public:
    explicit RandomPast(unsigned seed) : random_(seed) {
        for (int i = 0, at = 0; i < 300; ++i) {
            at += any(3) ? 0 : any(90);
            events_.push_back(event(at));
        }
        for (int first = 0; first < 120; first += 4) {
            StoryCluster cluster;
            for (int i = 0; i < 4; ++i) cluster.storyIDs.push_back(std::to_string(first + i));
            clusters_.push_back(cluster);
        }
    }

    AlertRule rule() {
        AlertDelivery delivery{
            .how = any(6) ? AlertDelivery::How::notify : AlertDelivery::How::quiet,
            .respectsQuietHours = any(3) > 0,
            .once = any(8) == 0};
        if (any(2)) delivery.minutes = 1 + any(300);
        if (any(3) == 0) delivery.expires = alertMinute(any(4'000));
        if (any(3) == 0) {
            return ruleOn(SignalsTrigger{.words = words(), .leastWeight = SignalWeight(any(3))},
                          delivery);
        }
        StoriesTrigger stories{.query = {.anyTerms = words(), .excludedTerms = {kWords[any(6)]}}};
        if (any(2)) stories.outlets = 1 + any(3);
        if (any(2)) stories.leastSourcing = Sourcing(any(5));
        return ruleOn(stories, delivery);
    }

    AlertQuiet quiet() {
        AlertQuiet quiet;
        if (any(2)) quiet.hours = QuietHours{.from = hours(any(24)), .to = hours(any(24))};
        if (any(3) == 0) quiet.until = alertMinute(any(2'000));
        return quiet;
    }

    int any(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
    const std::vector<AlertEvent>& events() const { return events_; }
    const std::vector<StoryCluster>& clusters() const { return clusters_; }

private:
    static constexpr const char* kWords[] = {"m6", "ipad", "store", "court", "beta", "late"};

    std::vector<std::string> words() {
        std::vector<std::string> list;
        for (int left = any(4); left > 0; --left) list.emplace_back(kWords[any(6)]);
        return list;
    }

    AlertEvent event(int at) {
        const auto title = fmt::format("{} {}", kWords[any(6)], kWords[any(6)]);
        const auto id = std::to_string(any(150));
        if (any(4) == 0) {
            return eventOf(newsSignal(id, SignalKind::release, "iOS", title, SignalWeight(any(3))),
                           alertMinute(at));
        }
        auto story = newsStory(id, title, Sourcing(any(5)));
        story.sourceID = story.sourceName = fmt::format("outlet {}", any(4));
        auto made = eventOf(std::move(story), alertMinute(at));
        if (any(10) == 0) made.arrival = AlertArrival::bulk;
        return made;
    }

    std::mt19937 random_;
    std::vector<AlertEvent> events_;
    std::vector<StoryCluster> clusters_;
};

/// What a desk tells that looks every few minutes for what is due, and starts again now and then.
std::vector<AlertTelling> toldLive(RandomPast& past, const AlertRule& rule, const AlertQuiet& quiet,
                                   Instant until) {
    const AlertRuleSet set({rule}, kNoBeats);
    SeenClusters seen(past.clusters());
    AlertPipeline pipeline;
    std::vector<AlertTelling> told;
    std::vector<std::string> matched;
    const auto add = [&](std::vector<AlertTelling> more) {
        std::ranges::move(more, std::back_inserter(told));
    };
    auto now = past.events().front().at;
    for (const auto& event : past.events()) {
        pipeline.setQuiet(quiet);
        for (; now < event.at; now += std::chrono::minutes(1 + past.any(9)))
            add(pipeline.advance(now));
        now = event.at;
        if (const auto* story = std::get_if<Story>(&event.subject)) seen.see(*story);
        for (const auto& match :
             set.matches(event, [&](const Story& one) { return seen.of(one); })) {
            add(pipeline.take(match));
            if (pipeline.hasMatched(rule.id, match.event)) matched.push_back(match.event);
        }
        if (past.any(20)) continue;
        pipeline = AlertPipeline(
            decode<AlertPipeline::State>(parseJSON(json::serialize(encode(pipeline.state())))));
        for (const auto& key : matched) pipeline.remember(rule.id, key);
    }
    pipeline.setQuiet(quiet);
    add(pipeline.advance(until));
    return told;
}

std::string textOf(const std::vector<AlertTelling>& told) {
    std::string text;
    for (const auto& telling : told) {
        text += fmt::format("{} {}", (telling.at - alertMinute(0)).count(), rawValue(telling.how));
        for (const auto& match : telling.matches)
            text += fmt::format(" {} ({})", match.event, fmt::join(match.words, ","));
        text += "\n";
    }
    return text;
}

TEST(Rehearsals, TellWhatTheDeskWouldHaveTold) {
    std::size_t tellings = 0;
    for (unsigned seed = 0; seed < 200; ++seed) {
        RandomPast past(seed);
        const auto rule = past.rule();
        const auto quiet = past.quiet();
        const auto until = past.events().back().at + hours(past.any(30));
        const auto run = runAlerts({rule}, kNoBeats, past.events(), past.clusters(), quiet, until);
        ASSERT_EQ(textOf(run.told), textOf(toldLive(past, rule, quiet, until)))
            << "seed " << seed << " " << json::serialize(encode(rule));
        std::size_t settled = run.held.size();
        for (const auto& telling : run.told) settled += telling.matches.size();
        ASSERT_EQ(settled, run.matches.size()) << "each match is told once or held, seed " << seed;
        tellings += run.told.size();
    }
    EXPECT_GT(tellings, 1'000u);
}

}  // namespace
}  // namespace kit
