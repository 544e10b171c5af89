#include <gtest/gtest.h>

#include <limits>

#include "NewsroomKit/Records/Instant.h"

namespace kit {
namespace {

struct ReadCase {
    std::string_view text;
    std::string_view sameAs;  ///< as written back; empty when the text is no date
};

class ISO8601Reading : public testing::TestWithParam<ReadCase> {};

TEST_P(ISO8601Reading, TakesTheWholeTextOrNothing) {
    const auto [text, sameAs] = GetParam();
    const auto instant = parseISO8601(text);
    EXPECT_EQ(instant ? iso8601Text(*instant) : "", sameAs) << text;
}

INSTANTIATE_TEST_SUITE_P(
    Zones, ISO8601Reading,
    testing::Values(
        ReadCase{"2026-10-01T08:30:00Z", "2026-10-01T08:30:00Z"},
        ReadCase{"2026-10-01t08:30:00z", "2026-10-01T08:30:00Z"},
        ReadCase{"2026-10-01T08:30:00+02:00", "2026-10-01T06:30:00Z"},
        ReadCase{"2026-10-01T08:30:00-0730", "2026-10-01T16:00:00Z"},
        ReadCase{"2026-10-01T08:30:00+05", "2026-10-01T03:30:00Z"},
        ReadCase{"2026-10-01T08:30:00", "2026-10-01T08:30:00Z"},
        ReadCase{"2026-01-01T00:30:00+01:00", "2025-12-31T23:30:00Z"},
        ReadCase{"2026-10-01T08:30:00 Z", ""}, ReadCase{"2026-10-01T08:30:00+2", ""},
        ReadCase{"2026-10-01T08:30:00+02:", ""}, ReadCase{"2026-10-01T08:30:00+24:00", ""},
        ReadCase{"2026-10-01T08:30:00+02:60", ""}, ReadCase{"2026-10-01T08:30:00ZZ", ""},
        ReadCase{"0001-01-01T00:00:00+01:00", ""}, ReadCase{"9999-12-31T23:59:59-01:00", ""}));

INSTANTIATE_TEST_SUITE_P(
    Fractions, ISO8601Reading,
    testing::Values(ReadCase{"2026-10-01T08:30:00.5Z", "2026-10-01T08:30:00.5Z"},
                    ReadCase{"2026-10-01T08:30:00.000Z", "2026-10-01T08:30:00Z"},
                    ReadCase{"2026-10-01T08:30:00.000001Z", "2026-10-01T08:30:00.000001Z"},
                    ReadCase{"2026-10-01T08:30:00.1234567890123+00:00",
                             "2026-10-01T08:30:00.123456Z"},
                    ReadCase{"2026-10-01T08:30:00.Z", ""}));

INSTANTIATE_TEST_SUITE_P(
    Limits, ISO8601Reading,
    testing::Values(ReadCase{"2024-02-29T00:00:00Z", "2024-02-29T00:00:00Z"},
                    ReadCase{"2023-02-29T00:00:00Z", ""}, ReadCase{"2026-13-01T00:00:00Z", ""},
                    ReadCase{"2026-00-01T00:00:00Z", ""}, ReadCase{"2026-04-31T00:00:00Z", ""},
                    ReadCase{"2026-10-01T24:00:00Z", ""}, ReadCase{"2026-10-01T23:60:00Z", ""},
                    ReadCase{"2016-12-31T23:59:60Z", "2017-01-01T00:00:00Z"},
                    ReadCase{"2016-12-31T23:59:61Z", ""}, ReadCase{"0000-01-01T00:00:00Z", ""},
                    ReadCase{"1969-12-31T23:59:59.25Z", "1969-12-31T23:59:59.25Z"},
                    ReadCase{"2026-10-01", ""}, ReadCase{"2026-10-01 08:30:00Z", ""},
                    ReadCase{"2026-10-01T08:30Z", ""}, ReadCase{"2026-1-1T08:30:00Z", ""},
                    ReadCase{"", ""}));

TEST(InstantSeconds, AreReadOnlyWithinTheYearsThatTextCanHold) {
    EXPECT_EQ(iso8601Text(*instantFromSeconds(1'790'000'000.25)), "2026-09-21T14:13:20.25Z");
    EXPECT_EQ(iso8601Text(*instantFromSeconds(-0.5)), "1969-12-31T23:59:59.5Z");
    for (double bad : {std::numeric_limits<double>::quiet_NaN(),
                       std::numeric_limits<double>::infinity(), 1e12, -1e12, 1e300}) {
        EXPECT_FALSE(instantFromSeconds(bad)) << bad;
    }
}

TEST(InstantSeconds, ComeBackAsTheyWere) {
    const auto instant = parseISO8601("2026-10-01T08:30:00.125Z").value();
    EXPECT_EQ(instantFromSeconds(secondsSince1970(instant)), instant);
}

}  // namespace
}  // namespace kit
