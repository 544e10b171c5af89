#include <gtest/gtest.h>

#include "Tarnwick_Brell/Trackers/TrackerSchedule.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using enum TrackerRound;
using Rounds = std::vector<TrackerRound>;

/// A desk's first hours; both clocks run together unless the computer sleeps.
class TrackerScheduleTest : public ::testing::Test {
protected:
    void start(const TrackerSchedule::Ages& ages = {}) {
        schedule_.emplace(ages, now_, [this] { return spread_; });
    }

    void pass(std::chrono::milliseconds time) {
        now_.steady += time;
        now_.wall += time;
    }

    Rounds due() { return schedule_->due(now_); }

    void run(TrackerRound round, bool wasGood = true) {
        schedule_->began(round, now_);
        schedule_->ended(round, now_, wasGood);
    }

    void runAll() {
        for (const auto round : due()) run(round);
    }

    /// How long it takes until that round is due.
    std::chrono::seconds wait(TrackerRound round) {
        for (auto waited = 0s; waited < 3h; waited += 1s) {
            const auto rounds = due();
            if (std::ranges::find(rounds, round) != rounds.end()) return waited;
            for (const auto other : rounds) run(other);
            pass(1s);
        }
        return 3h;
    }

    TrackerSchedule::Now now_{.wall = kit::Instant(1'000'000s),
                              .steady = TrackerSchedule::Steady(1'000'000s)};
    double spread_ = 0;
    std::optional<TrackerSchedule> schedule_;
};

TEST_F(TrackerScheduleTest, EachRoundHasItsIntervalAndVariesByATenth) {
    struct Case {
        TrackerRound round;
        std::chrono::seconds interval;
        bool isMarketOpen = false;
    };
    const Case cases[] = {{status, 2min}, {releases, 5min}, {board, 5min},
                          {events, 1h},   {quotes, 15min},  {quotes, 1min, true}};
    for (const auto& c : cases) {
        for (const double spread : {-1.0, 0.0, 1.0}) {
            spread_ = 0;
            start();
            EXPECT_EQ(due(), Rounds(kTrackerRounds.begin(), kTrackerRounds.end()));
            schedule_->setMarketOpen(c.isMarketOpen);
            spread_ = spread;
            runAll();
            EXPECT_EQ(wait(c.round), c.interval + c.interval * static_cast<int>(spread) / 10);
        }
    }
}

TEST_F(TrackerScheduleTest, WhatTheLastRunFetchedIsNotFetchedAgainBeforeItsTime) {
    start({{status, now_.wall - 30s}, {releases, now_.wall - 2h}, {board, now_.wall + 1h}});
    EXPECT_EQ(due(), (Rounds{releases, quotes, board, events}));
    EXPECT_EQ(wait(status), 90s);
}

TEST_F(TrackerScheduleTest, WhatFailsIsAskedAtGrowingDistances) {
    struct Case {
        TrackerRound round;
        std::vector<std::chrono::seconds> waits;
    };
    const Case cases[] = {{status, {4min, 8min, 15min, 15min}},
                          {releases, {10min, 15min, 15min}},
                          {events, {10min, 15min}}};
    for (const auto& c : cases) {
        start();
        runAll();
        wait(c.round);
        for (const auto expected : c.waits) {
            run(c.round, false);
            EXPECT_EQ(wait(c.round), expected);
        }
    }
    run(events, false);
    schedule_->networkIsBack(now_);
    EXPECT_EQ(wait(events), 0s);
    run(events);
    EXPECT_EQ(wait(events), 1h) << "one success ends it";
}

TEST_F(TrackerScheduleTest, AWishIsMetAtOnceAndNeverTwiceAtATime) {
    start();
    runAll();
    schedule_->ask(board, now_);
    EXPECT_EQ(due(), Rounds{board});
    schedule_->began(board, now_);
    schedule_->ask(board, now_);
    EXPECT_EQ(due(), Rounds()) << "it is under way";
    schedule_->ended(board, now_, true);
    EXPECT_EQ(due(), Rounds{board}) << "what was under way may have been asked for something else";
    runAll();
    EXPECT_EQ(wait(board), 5min);
}

TEST_F(TrackerScheduleTest, AfterSleepWhatIsOldIsDueSoonAndJumpsOfTheClockBringNoStorm) {
    start();
    runAll();
    spread_ = 1;
    now_.wall += 6min;
    EXPECT_EQ(due(), Rounds());
    EXPECT_EQ(schedule_->next(), now_.steady + 10s);
    pass(10s);
    EXPECT_EQ(due(), (Rounds{status, releases, board})) << "neither quotes nor events are old";
    runAll();
    now_.wall -= 24h;
    EXPECT_EQ(due(), Rounds());
    EXPECT_EQ(wait(status), 132s);
    now_.wall += 24h;
    runAll();
    pass(10s);
    runAll();
    EXPECT_EQ(due(), Rounds());
}

}  // namespace
}  // namespace app
