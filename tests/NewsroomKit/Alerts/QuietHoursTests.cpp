#include "NewsroomKit/Alerts/QuietHours.h"

#include <gtest/gtest.h>

namespace kit {
namespace {

using namespace std::chrono;

Instant utc(year_month_day day, int hour, int minute) {
    return sys_days(day) + hours(hour) + minutes(minute);
}

QuietHours night(std::string_view from, std::string_view to, std::string_view zone = "UTC") {
    return {.from = *minutesOfDay(from), .to = *minutesOfDay(to), .zone = TimeZone(zone)};
}

TEST(QuietHoursOfANight, BeginWithTheirFirstMinuteAndEndBeforeTheirLast) {
    const auto day = 2026y / November / 20;
    const auto seven = utc(2026y / November / 21, 7, 0);
    const auto quiet = night("22:00", "07:00");
    EXPECT_EQ(quiet.endAfter(utc(day, 21, 59)), std::nullopt);
    EXPECT_EQ(quiet.endAfter(utc(day, 22, 0)), seven);
    EXPECT_EQ(quiet.endAfter(utc(2026y / November / 21, 6, 59)), seven);
    EXPECT_EQ(quiet.endAfter(seven), std::nullopt);
    EXPECT_EQ(night("09:00", "17:00").endAfter(utc(day, 12, 0)), utc(day, 17, 0));
    EXPECT_EQ(night("09:00", "09:00").endAfter(utc(day, 9, 0)), std::nullopt);
}

TEST(QuietHoursOfANight, BelongToTheDayOnWhichTheyBegin) {
    auto quiet = night("22:00", "07:00");
    quiet.weekdays = {5};  // Friday, 20 November 2026
    EXPECT_TRUE(quiet.endAfter(utc(2026y / November / 21, 3, 0)));
    EXPECT_FALSE(quiet.endAfter(utc(2026y / November / 20, 3, 0)));
    EXPECT_FALSE(quiet.endAfter(utc(2026y / November / 21, 23, 0)));
}

TEST(QuietHoursOfANight, AreAsLongAsTheyCanBeWhereClocksAreChanged) {
    const auto spring = 2026y / March / 29, autumn = 2026y / October / 25;
    // 02:30 does not exist in that night; clocks go from 02:00 to 03:00 at 01:00 UTC.
    EXPECT_EQ(night("23:00", "02:30", "Europe/Berlin").endAfter(utc(spring, 0, 59)),
              utc(spring, 1, 0));
    EXPECT_EQ(night("02:30", "06:00", "Europe/Berlin").endAfter(utc(spring, 1, 0)),
              utc(spring, 4, 0));
    // 02:30 comes twice, at 00:30 and at 01:30 UTC.
    const auto early = night("23:00", "02:30", "Europe/Berlin");
    EXPECT_EQ(early.endAfter(utc(autumn, 1, 29)), utc(autumn, 1, 30));
    EXPECT_EQ(early.endAfter(utc(autumn, 1, 30)), std::nullopt);
    const auto late = night("02:30", "06:00", "Europe/Berlin");
    EXPECT_EQ(late.endAfter(utc(autumn, 0, 29)), std::nullopt);
    EXPECT_EQ(late.endAfter(utc(autumn, 0, 30)), utc(autumn, 5, 0));
}

}  // namespace
}  // namespace kit
