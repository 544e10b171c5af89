#include "NewsroomKit/Alerts/AlertPipeline.h"

#include <algorithm>
#include <iterator>
#include <random>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace kit {
namespace {

using std::chrono::hours;
using std::chrono::minutes;

Instant minute(int number) { return Instant(minutes(28'000'000 + number)); }

AlertMatch match(const char* rule, const std::string& event, Instant at,
                 AlertDelivery delivery = {}) {
    return {.rule = rule, .event = event, .title = event, .at = at, .delivery = delivery};
}

/// "0 notified a; 30 summary b c;"
std::string text(const std::vector<AlertTelling>& told) {
    std::string text;
    for (const auto& telling : told) {
        const auto at = std::chrono::floor<minutes>(telling.at - minute(0)).count();
        text += fmt::format("{} {}", at, rawValue(telling.how));
        for (const auto& one : telling.matches) text += " " + one.event;
        text += ";";
    }
    return text;
}

void append(std::vector<AlertTelling>& told, std::vector<AlertTelling> more) {
    std::ranges::move(more, std::back_inserter(told));
}

std::string told(AlertPipeline& pipeline, const std::vector<AlertMatch>& matches, Instant until) {
    std::vector<AlertTelling> all;
    for (const auto& one : matches) append(all, pipeline.take(one));
    append(all, pipeline.advance(until));
    return text(all);
}

TEST(AlertPipelines, TellAnEventOnceForEachRule) {
    AlertPipeline pipeline;
    pipeline.remember("r", "old");
    auto same = match("r", "c", minute(4));
    same.sameAs = {"x", "a"};
    EXPECT_EQ(told(pipeline,
                   {match("r", "a", minute(0)), match("r", "a", minute(1)),
                    match("s", "a", minute(2)), match("r", "old", minute(3)), same},
                   minute(9)),
              "0 notified a;2 notified a;");
}

TEST(AlertPipelines, HoldBackWhatComesWithinTheRulesMinutes) {
    const AlertDelivery slow{.minutes = 30};
    AlertPipeline pipeline;
    EXPECT_EQ(told(pipeline,
                   {match("r", "a", minute(0), slow), match("r", "b", minute(5), slow),
                    match("s", "c", minute(6)), match("r", "d", minute(29), slow),
                    match("r", "e", minute(59), slow), match("r", "f", minute(90), slow)},
                   minute(200)),
              "0 notified a;6 notified c;30 summary b d;60 summary e;90 notified f;");
}

TEST(AlertPipelines, TellAfterQuietHoursInOneSummary) {
    const AlertDelivery slow{.minutes = 30}, urgent{.respectsQuietHours = false};
    AlertPipeline pipeline;
    pipeline.setQuiet({.until = minute(60)});
    EXPECT_EQ(told(pipeline,
                   {match("r", "a", minute(0), slow), match("s", "b", minute(59), urgent),
                    match("q", "q", minute(59), {.how = AlertDelivery::How::quiet}),
                    match("r", "c", minute(60), slow), match("s", "d", minute(61))},
                   minute(200)),
              "59 quiet q;60 summary a b;61 notified d;90 summary c;");
}

TEST(AlertPipelines, ObserveTheHoursOfRulesThatKeepToThem) {
    const auto midnight = Instant(std::chrono::sys_days(std::chrono::days(20'000)));
    const QuietHours night{.from = hours(22), .to = hours(7)};
    AlertPipeline pipeline;
    pipeline.setQuiet({.hours = night, .until = midnight + minutes(30)});
    const auto evening = midnight - minutes(15);
    EXPECT_TRUE(pipeline.take(match("r", "a", evening)).empty());
    EXPECT_TRUE(pipeline.take(match("r", "b", evening, {.respectsQuietHours = false})).empty())
        << "quiet by the user's word holds for all rules";
    const auto first = pipeline.advance(midnight + minutes(30));
    ASSERT_EQ(first.size(), 1u);
    EXPECT_EQ(first[0].matches[0].event, "b");
    EXPECT_EQ(pipeline.nextDue(), midnight + hours(7));
    ASSERT_EQ(pipeline.advance(midnight + hours(9)).size(), 1u);
    EXPECT_TRUE(pipeline.held().empty());
}

TEST(AlertPipelines, TellNoMoreThanTwentyAnHourAndTheRestTogether) {
    AlertPipeline pipeline;
    std::vector<AlertTelling> all;
    for (int i = 0; i < 5'000; ++i)
        append(all, pipeline.take(match(i % 2 ? "r" : "s", std::to_string(i), minute(i / 500))));
    EXPECT_EQ(all.size(), AlertPipeline::kMostAnHour);
    EXPECT_EQ(pipeline.nextDue(), minute(60));
    const auto summary = pipeline.advance(minute(60));
    ASSERT_EQ(summary.size(), 1u);
    EXPECT_EQ(summary[0].matches.size(), 4'980u);
    EXPECT_EQ(text(pipeline.take(match("r", "next", minute(60)))), "60 notified next;");
}

TEST(AlertPipelines, KeepToTheQuietHoursInWhichTheComputerWakes) {
    const auto midnight = Instant(std::chrono::sys_days(std::chrono::days(20'000)));
    const AlertDelivery slow{.minutes = 30};
    AlertPipeline pipeline;
    pipeline.setQuiet({.hours = QuietHours{.from = hours(22), .to = hours(7)}});
    pipeline.take(match("r", "a", midnight - hours(3), slow));
    pipeline.take(match("r", "b", midnight - hours(3) + minutes(1), slow));
    // Asleep from then until three, while "b" became due.
    pipeline.resume(midnight + hours(3));
    EXPECT_TRUE(pipeline.advance(midnight + hours(3)).empty());
    EXPECT_TRUE(pipeline.take(match("s", "c", midnight + hours(4))).empty());
    const auto told = pipeline.advance(midnight + hours(7));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].matches.size(), 2U);
}

TEST(AlertPipelines, EndRulesByTimeAndByUse) {
    AlertPipeline pipeline;
    const AlertDelivery ending{.minutes = 30, .expires = minute(10)}, once{.once = true};
    EXPECT_EQ(told(pipeline,
                   {match("r", "a", minute(0), ending), match("r", "b", minute(9), ending),
                    match("r", "c", minute(10), ending), match("s", "d", minute(11), once),
                    match("s", "e", minute(12), once)},
                   minute(99)),
              "0 notified a;11 notified d;30 summary b;");
}

TEST(AlertPipelines, NeitherRepeatNorBlockWhenTheClockIsSetBack) {
    const AlertDelivery slow{.minutes = 30};
    AlertPipeline pipeline;
    EXPECT_EQ(text(pipeline.take(match("r", "a", minute(10'000), slow))), "10000 notified a;");
    pipeline.take(match("r", "b", minute(10'001), slow));
    EXPECT_EQ(told(pipeline, {match("r", "a", minute(0), slow), match("r", "c", minute(1), slow)},
                   minute(100)),
              "29 summary b;30 summary c;");
}

TEST(AlertPipelines, HoldUntilTheLastOfSeveralQuietTimesEnds) {
    const auto midnight = Instant(std::chrono::sys_days(std::chrono::days(20'000)));
    AlertPipeline pipeline;
    pipeline.setQuiet(
        {.hours = QuietHours{.from = hours(22), .to = hours(7)}, .until = midnight - hours(1)});
    auto one = match("r", "a", midnight - hours(4));
    one.sameAs = {"x", "y"};
    pipeline.take(one);
    pipeline.take(match("r", "b", midnight - hours(3), {.respectsQuietHours = false}));
    ASSERT_EQ(pipeline.held().size(), 2u);
    EXPECT_EQ(pipeline.held()[0].until, midnight + hours(7));
    EXPECT_TRUE(pipeline.held()[0].match.sameAs.empty()) << "would be stored";
    EXPECT_EQ(pipeline.nextDue(), midnight - hours(1));
}

TEST(AlertPipelines, ObserveTheMinutesOfARuleInItsSummaryOfAnHourToo) {
    const AlertDelivery slow{.minutes = 45};
    AlertPipeline pipeline;
    for (int i = 0; i < 20; ++i) pipeline.take(match("s", std::to_string(i), minute(0)));
    EXPECT_EQ(told(pipeline,
                   {match("r", "a", minute(10), slow), match("r", "b", minute(61), slow),
                    match("t", "c", minute(62))},
                   minute(300)),
              "60 summary a;62 notified c;105 summary b;");
}

TEST(AlertPipelines, UseARuleUpAnewOnceItHasBeenSwitchedOff) {
    const AlertDelivery once{.once = true};
    AlertPipeline pipeline;
    pipeline.setQuiet({.until = minute(5)});
    EXPECT_EQ(told(pipeline, {match("r", "a", minute(0), once), match("r", "b", minute(9), once)},
                   minute(10)),
              "5 summary a;")
        << "what is held uses the rule up";
    pipeline.dropHeld("r");
    EXPECT_EQ(told(pipeline, {match("r", "a", minute(11), once), match("r", "c", minute(12), once)},
                   minute(20)),
              "12 notified c;");
}

TEST(AlertPipelines, DropWhatIsHeldForARuleThatIsGone) {
    AlertPipeline pipeline;
    pipeline.setQuiet({.until = minute(60)});
    pipeline.take(match("r", "a", minute(0)));
    pipeline.take(match("s", "b", minute(0)));
    pipeline.dropHeld("r");
    EXPECT_EQ(text(pipeline.advance(minute(60))), "60 summary b;");
}

/// A restart in between changes nothing: the state and what was matched are enough.
TEST(AlertPipelines, GoOnAfterARestart) {
    std::mt19937 random(11);
    const auto any = [&](int below) {
        return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    for (int round = 0; round < 60; ++round) {
        const QuietHours night{.from = hours(22), .to = hours(7)};
        AlertPipeline whole, restarted;
        whole.setQuiet({.hours = night});
        restarted.setQuiet({.hours = night});
        std::vector<AlertTelling> all, parts;
        std::vector<AlertMatch> taken;
        int now = 0;
        for (int i = 0; i < 150; ++i) {
            now += any(40);
            AlertDelivery delivery{.respectsQuietHours = any(2) == 0, .once = any(20) == 0};
            const char* rule = any(2) ? "r" : "s";
            if (*rule == 'r') delivery.minutes = 45;
            const auto one = match(rule, std::to_string(any(200)), minute(now), delivery);
            append(all, whole.take(one));
            append(parts, restarted.take(one));
            taken.push_back(one);
            if (any(10)) continue;
            auto state =
                decode<AlertPipeline::State>(parseJSON(json::serialize(encode(restarted.state()))));
            AlertPipeline next(std::move(state));
            next.setQuiet({.hours = night});
            for (const auto& seen : taken) {
                if (restarted.hasMatched(seen.rule, seen.event))
                    next.remember(seen.rule, seen.event);
            }
            restarted = std::move(next);
        }
        append(all, whole.advance(minute(now + 3'000)));
        append(parts, restarted.advance(minute(now + 3'000)));
        ASSERT_EQ(text(all), text(parts)) << "round " << round;
    }
}

}  // namespace
}  // namespace kit
