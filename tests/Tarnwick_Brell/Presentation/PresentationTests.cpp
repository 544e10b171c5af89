#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>

#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/CalendarDays.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {
namespace {

using kit::Instant;
using kit::PriceChange;

Instant at(const char* text) { return kit::parseISO8601(text).value(); }

/// A user in Tokyo, who writes as the English do; what is plain is the same there.
class Presentation : public ::testing::Test {
protected:
    Presentation() {
        setenv("TZ", "Asia/Tokyo", 1);
        tzset();
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
        plain_.zone = Qt::UTC;
    }

    Style plain_ = Style::plain();
    const Instant now_ = at("2026-11-20T12:30:00Z");  // half past nine in the evening in Tokyo
};

TEST_F(Presentation, TimesFollowTheStylesZoneAndForm) {
    struct Case {
        const char* then;
        const char *age, *plainAge;
        const char *ago, *plainAgo;
        const char *moment, *plainMoment;
    };
    const Case cases[] = {
        {"2026-11-20T12:29:31Z", "now", "now", "just now", "just now", "21:29",
         "2026-11-20 12:29 UTC"},
        {"2026-11-20T11:31:00Z", "59 min", "59 min", "59 min ago", "59 min ago", "20:31",
         "2026-11-20 11:31 UTC"},
        // The same day in Tokyo, the day before in UTC.
        {"2026-11-19T23:30:00Z", "13 h", "Yesterday", "13 h ago", "yesterday", "08:30",
         "2026-11-19 23:30 UTC"},
        {"2026-11-20T00:10:00Z", "12 h", "12 h", "12 h ago", "12 h ago", "09:10",
         "2026-11-20 00:10 UTC"},
        {"2026-11-19T12:30:00Z", "Yesterday", "Yesterday", "yesterday", "yesterday",
         "Yesterday 21:30", "2026-11-19 12:30 UTC"},
        {"2026-11-13T15:30:00Z", "14 Nov", "2026-11-13", "6 days ago", "7 days ago", "14 Nov 00:30",
         "2026-11-13 15:30 UTC"},
        {"2025-12-31T16:00:00Z", "1 Jan", "2025-12-31", "323 days ago", "324 days ago",
         "1 Jan 01:00", "2025-12-31 16:00 UTC"},
        {"2025-05-16T05:00:00Z", "16 May 2025", "2025-05-16", "553 days ago", "553 days ago",
         "16 May 2025 14:00", "2025-05-16 05:00 UTC"},
        {"2026-11-20T12:30:59Z", "now", "now", "now", "now", "21:30", "2026-11-20 12:30 UTC"},
        {"2026-11-20T13:05:00Z", "now", "now", "in 35 min", "in 35 min", "22:05",
         "2026-11-20 13:05 UTC"},
        {"2026-11-21T00:00:00Z", "now", "now", "in 11 h", "in 11 h", "Tomorrow 09:00",
         "2026-11-21 00:00 UTC"},
        {"2026-11-21T12:30:00Z", "now", "now", "tomorrow", "tomorrow", "Tomorrow 21:30",
         "2026-11-21 12:30 UTC"},
        {"2026-12-09T15:00:00Z", "now", "now", "in 20 days", "in 19 days", "10 Dec 00:00",
         "2026-12-09 15:00 UTC"},
    };
    for (const auto& c : cases) {
        const auto then = at(c.then);
        EXPECT_EQ(ageText(then, now_), c.age) << c.then;
        EXPECT_EQ(ageText(then, now_, plain_), c.plainAge) << c.then;
        EXPECT_EQ(agoText(then, now_), c.ago) << c.then;
        EXPECT_EQ(agoText(then, now_, plain_), c.plainAgo) << c.then;
        EXPECT_EQ(momentText(then, now_), c.moment) << c.then;
        EXPECT_EQ(momentText(then, now_, plain_), c.plainMoment) << c.then;
    }
}

TEST_F(Presentation, DaysAreThoseOfTheZoneUnlessTheyHaveNoTime) {
    const auto midnight = at("2026-05-16T00:00:00Z"), evening = at("2026-05-16T20:00:00Z");
    EXPECT_EQ(dayText(evening, now_), "Sun 17 May");
    EXPECT_EQ(dayText(evening, now_, plain_), "2026-05-16");
    setenv("TZ", "America/Los_Angeles", 1);
    tzset();
    EXPECT_EQ(shortDayText(midnight, now_), "15 May");
    EXPECT_EQ(namedDayText(midnight, now_), "16 May") << "a day without a time";
    EXPECT_EQ(clockText(evening), "13:00");
    EXPECT_EQ(wholeMomentText(evening), "16 May 2026, 13:00 PDT");
    EXPECT_EQ(wholeMomentText(evening, plain_), "2026-05-16 20:00 UTC");
    EXPECT_EQ(clockText(evening, plain_), "20:00 UTC");
    EXPECT_EQ(clockText(evening, Style::plain()), "13:00 PDT") << "the user's zone, named";
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(dayText(evening, now_), "Sa. 16 Mai");
    EXPECT_EQ(dayText(evening, now_, plain_), "2026-05-16");
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(clockText(evening), "13:00") << "without seconds";
}

TEST_F(Presentation, DurationsHaveAtMostTwoUnits) {
    using namespace std::chrono;
    const std::pair<Instant::duration, const char*> cases[] = {
        {seconds(59), "under a minute"},
        {minutes(35), "35 min"},
        {hours(2), "2 h"},
        {minutes(125) + seconds(59), "2 h 5 min"},
        {hours(24) - seconds(1), "23 h 59 min"},
        {days(1), "1 d"},
        {days(3) + hours(4) + minutes(50), "3 d 4 h"},
    };
    for (const auto& [span, text] : cases) EXPECT_EQ(spanText(span), text);
}

TEST_F(Presentation, ChangesCarryASignAndWhatCannotBeMeasuredIsLeftOut) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    struct Case {
        double price;
        std::optional<double> reference;
        const char *user, *plain;
    };
    constexpr double inf = std::numeric_limits<double>::infinity();
    const Case cases[] = {
        {274.86, 272.94, "+1,92 (+0,70%)", "+1.92 (+0.70%)"},
        {1200, 2400, "\u22121.200,00 (\u221250,00%)", "\u22121,200.00 (\u221250.00%)"},
        {10.004, 10, "0,00 (+0,04%)", "0.00 (+0.04%)"},
        {10, 10, "0,00 (0,00%)", "0.00 (0.00%)"},
        {10, std::nullopt, "none", "none"},
        {10, 0, "none", "none"},
        {inf, 10, "none", "none"},
        {1e300, 1e-300, "none", "none"},
    };
    for (const auto& [price, reference, user, plain] : cases) {
        const auto change = PriceChange::of(price, reference);
        EXPECT_EQ(change ? changeText(*change) : "none", user) << price;
        EXPECT_EQ(change ? changeText(*change, plain_) : "none", plain) << price;
    }
    EXPECT_EQ(priceText(1234567.5), "1.234.567,50");
    EXPECT_EQ(priceText(1234567.5, plain_), "1,234,567.50");
}

TEST_F(Presentation, DaysBeginAtTheReadersMidnightAndAreShorterOrLongerWhenClocksChange) {
    struct Case {
        const char *zone, *now, *first, *last, *end;
        int hours;
    };
    const Case cases[] = {
        {"Asia/Tokyo", "2026-11-20T15:30:00Z", "2026-11-19T15:00:00Z", "2026-11-20T15:00:00Z",
         "2026-11-21T15:00:00Z", 48},
        {"Europe/Berlin", "2026-10-25T12:00:00Z", "2026-10-23T22:00:00Z", "2026-10-24T22:00:00Z",
         "2026-10-25T23:00:00Z", 49},
        {"America/New_York", "2026-03-08T12:00:00Z", "2026-03-07T05:00:00Z", "2026-03-08T05:00:00Z",
         "2026-03-09T04:00:00Z", 47},
    };
    for (const auto& c : cases) {
        setenv("TZ", c.zone, 1);
        tzset();
        const auto days = lastDays(at(c.now), 2);
        EXPECT_EQ(days, (std::vector{at(c.first), at(c.last), at(c.end)})) << c.zone;
        EXPECT_EQ((days.back() - days.front()) / std::chrono::hours(1), c.hours) << c.zone;
    }
}

}  // namespace
}  // namespace app
