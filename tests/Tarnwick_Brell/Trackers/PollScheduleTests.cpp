#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "Tarnwick_Brell/Trackers/PollSchedule.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using enum Tracker;
using Trackers = std::vector<Tracker>;

/// A desk's first hours; both clocks run together unless the computer sleeps.
class PollScheduleTest : public ::testing::Test {
protected:
    void start(const PollSchedule::Ages& ages = {}) {
        schedule_.emplace(ages, now_, [this] { return spread_; });
    }

    void pass(std::chrono::milliseconds time) {
        now_.steady += time;
        now_.wall += time;
    }

    Trackers due() { return schedule_->due(now_); }

    void run(Tracker tracker, bool wasGood = true) {
        schedule_->began(tracker, now_);
        schedule_->ended(tracker, now_, wasGood);
    }

    void runAll() {
        for (const auto tracker : due()) run(tracker);
    }

    /// How long it takes until that tracker is due.
    std::chrono::seconds wait(Tracker tracker) {
        for (auto waited = 0s; waited < 3h; waited += 1s) {
            const auto trackers = due();
            if (std::ranges::find(trackers, tracker) != trackers.end()) return waited;
            for (const auto other : trackers) run(other);
            pass(1s);
        }
        return 3h;
    }

    Clocks now_{.wall = kit::Instant(1'000'000s), .steady = Clocks::Steady(1'000'000s)};
    double spread_ = 0;
    std::optional<PollSchedule> schedule_;
};

TEST_F(PollScheduleTest, EachTrackerHasItsIntervalAndVariesByATenth) {
    struct Case {
        Tracker tracker;
        std::chrono::seconds interval;
        bool isMarketOpen = false;
    };
    const Case cases[] = {{status, 2min},  {releases, 5min},     {board, 5min},   {events, 1h},
                          {quotes, 15min}, {quotes, 1min, true}, {signing, 30min}};
    for (const auto& c : cases) {
        for (const double spread : {-1.0, 0.0, 1.0}) {
            spread_ = 0;
            start();
            EXPECT_EQ(due(), Trackers(kTrackers.begin(), kTrackers.end()));
            schedule_->setInterval(quotes, pollInterval(quotes, c.isMarketOpen));
            spread_ = spread;
            runAll();
            EXPECT_EQ(wait(c.tracker), c.interval + c.interval * static_cast<int>(spread) / 10);
        }
    }
}

TEST_F(PollScheduleTest, WhatTheLastRunFetchedIsNotFetchedAgainBeforeItsTime) {
    start({{status, now_.wall - 30s}, {releases, now_.wall - 2h}, {board, now_.wall + 1h}});
    EXPECT_EQ(due(), (Trackers{releases, quotes, board, events, signing, updates, charts, filings,
                               court, press, backend, pages}));
    EXPECT_EQ(wait(status), 90s);
}

TEST_F(PollScheduleTest, WhatFailsIsAskedAtGrowingDistances) {
    struct Case {
        Tracker tracker;
        std::vector<std::chrono::seconds> waits;
    };
    const Case cases[] = {{status, {4min, 8min, 15min, 15min}},
                          {releases, {10min, 15min, 15min}},
                          {events, {10min, 15min}}};
    for (const auto& c : cases) {
        start();
        runAll();
        wait(c.tracker);
        for (const auto expected : c.waits) {
            run(c.tracker, false);
            EXPECT_EQ(wait(c.tracker), expected);
        }
    }
    run(events, false);
    schedule_->networkIsBack(now_);
    EXPECT_EQ(wait(events), 0s);
    run(events);
    EXPECT_EQ(wait(events), 1h) << "one success ends it";
}

TEST_F(PollScheduleTest, ARequestIsMetAtOnceAndNeverTwiceAtATime) {
    start();
    runAll();
    schedule_->request(board, now_);
    EXPECT_EQ(due(), Trackers{board});
    schedule_->began(board, now_);
    schedule_->request(board, now_);
    EXPECT_EQ(due(), Trackers()) << "it is under way";
    schedule_->ended(board, now_, true);
    EXPECT_EQ(due(), Trackers{board})
        << "what was under way may have been asked for something else";
    runAll();
    EXPECT_EQ(wait(board), 5min);
}

TEST_F(PollScheduleTest, AfterSleepWhatIsOldIsDueSoonAndJumpsOfTheClockBringNoStorm) {
    start();
    runAll();
    spread_ = 1;
    now_.wall += 6min;
    EXPECT_EQ(due(), Trackers());
    EXPECT_EQ(schedule_->next(), now_.steady + 10s);
    pass(10s);
    EXPECT_EQ(due(), (Trackers{status, releases, board, pages}))
        << "neither quotes nor events are old";
    runAll();
    now_.wall -= 24h;
    EXPECT_EQ(due(), Trackers());
    EXPECT_EQ(wait(status), 132s);
    now_.wall += 24h;
    runAll();
    pass(10s);
    runAll();
    EXPECT_EQ(due(), Trackers());
}

}  // namespace
}  // namespace app
