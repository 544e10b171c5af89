#include "NewsroomKit/Text/TimeZone.h"

#include <gtest/gtest.h>

namespace kit {
namespace {

using namespace std::chrono;

TimeZone::Shown clock(year_month_day day, int hour, int minute) {
    return TimeZone::Shown(local_days(day)) + hours(hour) + minutes(minute);
}

TimeZone::Moment utc(year_month_day day, int hour, int minute) {
    return sys_days(day) + hours(hour) + minutes(minute);
}

TEST(TimeZones, SkippedAndRepeatedTimesHaveMoments) {
    const TimeZone berlin("Europe/Berlin");
    const auto spring = 2026y / March / 29, autumn = 2026y / October / 25;
    const struct {
        TimeZone::Shown shown;
        TimeZone::Moment first;
        TimeZone::Moment last;
    } cases[] = {
        {clock(spring, 1, 59), utc(spring, 0, 59), utc(spring, 0, 59)},
        {clock(spring, 2, 0), utc(spring, 1, 0), utc(spring, 1, 0)},
        {clock(spring, 2, 30), utc(spring, 1, 0), utc(spring, 1, 0)},
        {clock(spring, 3, 0), utc(spring, 1, 0), utc(spring, 1, 0)},
        {clock(autumn, 2, 30), utc(autumn, 0, 30), utc(autumn, 1, 30)},
        {clock(autumn, 3, 0), utc(autumn, 2, 0), utc(autumn, 2, 0)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(berlin.firstOf(c.shown), c.first) << c.shown.time_since_epoch().count();
        EXPECT_EQ(berlin.lastOf(c.shown), c.last) << c.shown.time_since_epoch().count();
    }
    EXPECT_EQ(berlin.shownAt(utc(spring, 1, 0)), clock(spring, 3, 0));
    EXPECT_EQ(TimeZone("America/New_York").shownAt(utc(2026y / November / 22, 3, 0)),
              clock(2026y / November / 21, 22, 0));
    EXPECT_THROW(TimeZone("Europe/Cupertino"), std::invalid_argument);
    EXPECT_FALSE(TimeZone::here().name().empty());
}

}  // namespace
}  // namespace kit
