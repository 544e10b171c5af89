#include <gtest/gtest.h>

#include "Tarnwick_Brell/Desk/RefreshCadence.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using kit::Instant;

/// A day at the desk: both clocks, looked at every 30 s as the desk does, and the passes that
/// begin. A pass takes two seconds.
class Day {
public:
    explicit Day(std::optional<Instant> lastRefresh = std::nullopt)
        : cadence(5min, lastRefresh, now(), [](auto longest) { return longest / 2; }) {}

    /// Passes that begin while both clocks run on.
    int run(std::chrono::seconds time, bool offline = false) {
        int passes = 0;
        for (const auto end = steady + time; steady < end;) {
            if (cadence.isDue(now())) {
                ++passes;
                cadence.passBegan(now());
                pass(2s);
                cadence.passEnded(now(), offline);
            }
            pass(std::min<std::chrono::milliseconds>(
                30s, std::max<std::chrono::milliseconds>(
                         1ms, std::chrono::ceil<std::chrono::milliseconds>(cadence.nextPass(now()) -
                                                                           steady))));
        }
        return passes;
    }

    Clocks now() const { return {wall, steady}; }

    void pass(std::chrono::milliseconds time) {
        wall += time;
        steady += time;
    }

    Instant wall{std::chrono::sys_days(std::chrono::year(2026) / 3 / 29)};
    Clocks::Steady steady{100h};
    RefreshCadence cadence;
};

TEST(RefreshCadence, PassesComeAtTheirIntervalAndTheFirstOneWithLittleDelay) {
    Day day;
    EXPECT_FALSE(day.cadence.isDue(day.now())) << "many desks may start at one moment";
    EXPECT_EQ(day.run(10s), 1);
    EXPECT_EQ(day.run(60min), 12);

    const auto start = Day().wall;
    Day again(start - 4min);
    EXPECT_EQ(again.run(50s), 0) << "the last run has just refreshed";
    EXPECT_EQ(again.run(20s), 1);
    Day future(start + 24h);
    EXPECT_EQ(future.run(10s), 1) << "a last refresh that is yet to come was a wrong clock's";
}

TEST(RefreshCadence, AClockThatJumpsBringsNeitherAStormNorSilence) {
    for (const auto jump : {-48h, -1h, 1h, 48h, 24h * 365 * 3}) {
        Day day;
        day.run(7min);
        day.wall += jump;
        const int passes = day.run(60min);
        EXPECT_GE(passes, 12) << jump.count();
        EXPECT_LE(passes, 13) << jump.count() << ": at most one more";
    }
}

TEST(RefreshCadence, AfterSleepOnePassCatchesUp) {
    Day day;
    day.run(7min);
    day.wall += 8h;
    EXPECT_EQ(day.run(31s + 6s), 1);
    EXPECT_EQ(day.run(1min), 0);
    day.wall += 2min;
    EXPECT_EQ(day.run(31s), 0) << "a nap is no reason";
    day.wall += 3min;
    EXPECT_EQ(day.run(37s), 1) << "two naps are, when a pass would have come meanwhile";
}

TEST(RefreshCadence, WithoutANetworkItTriesSoonAndThenLessOften) {
    Day day;
    day.run(10s);
    const int firstHour = day.run(60min, true);
    EXPECT_GE(firstHour, 13);
    EXPECT_LE(firstHour, 17);
    EXPECT_EQ(day.run(60min, true), 12);
}

TEST(RefreshCadence, LivePassesComeEveryMinuteForTwoHoursAtMost) {
    Day day;
    day.run(10s);
    day.cadence.goLive(day.wall + 24h, day.now());
    const int passes = day.run(3h);
    EXPECT_GE(passes, 120 + 12 - 1);
    EXPECT_LE(passes, 120 + 12 + 1);
    EXPECT_FALSE(day.cadence.liveUntil(day.wall).has_value());

    day.cadence.goLive(day.wall + 10min, day.now());
    day.wall -= 24h;
    EXPECT_FALSE(day.cadence.liveUntil(day.wall).has_value()) << "a clock set back ends it";
}

}  // namespace
}  // namespace app
