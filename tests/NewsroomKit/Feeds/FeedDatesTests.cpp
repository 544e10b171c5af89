#include <gtest/gtest.h>

#include "NewsroomKit/Feeds/FeedDates.h"

namespace newsroom {
namespace {

struct DateCase {
    std::string_view text;
    std::string_view iso;  ///< empty when the text gives no date
};

class FeedDates : public testing::TestWithParam<DateCase> {};

TEST_P(FeedDates, AreReadInEveryFormThatFeedsWrite) {
    const auto [text, iso] = GetParam();
    const auto instant = parseFeedDate(text);
    EXPECT_EQ(instant ? iso8601Text(*instant) : "", iso) << text;
}

INSTANTIATE_TEST_SUITE_P(NamedMonths, FeedDates, testing::Values(
    DateCase{"Thu, 01 Oct 2026 08:30:15 +0000", "2026-10-01T08:30:15Z"},
    DateCase{"Thu, 1 Oct 2026 08:30:15 -0700", "2026-10-01T15:30:15Z"},
    DateCase{"Thu, 01 Oct 2026 08:30:15 +05:30", "2026-10-01T03:00:15Z"},
    DateCase{"01 Oct 2026 08:30:15 +0200", "2026-10-01T06:30:15Z"},
    DateCase{"Thu, 01 Oct 2026 08:30 GMT", "2026-10-01T08:30:00Z"},
    DateCase{"05 Aug 2025 01:40 +0000", "2025-08-05T01:40:00Z"},
    DateCase{"\n\t Thu, 01 Oct 2026 08:30:15 GMT \n", "2026-10-01T08:30:15Z"},
    DateCase{"Thu,  1 Oct 2026 08:30:15  GMT", "2026-10-01T08:30:15Z"},
    DateCase{"THU, 01 OCT 2026 8:30:15 gmt", "2026-10-01T08:30:15Z"},
    DateCase{"Thursday, 01 October 2026 08:30:15 GMT", "2026-10-01T08:30:15Z"},
    DateCase{"Tues, 15 Sept 2026 08:30:15 GMT", "2026-09-15T08:30:15Z"},
    DateCase{"Mon, 01 Oct 2026 08:30:15 GMT", "2026-10-01T08:30:15Z"},
    DateCase{"Thu, 01 Oct 26 08:30:15 GMT", "2026-10-01T08:30:15Z"},
    DateCase{"Fri, 01 Oct 99 08:30:15 GMT", "1999-10-01T08:30:15Z"},
    DateCase{"Thu, 01 Oct 2026 08:30:15", "2026-10-01T08:30:15Z"},
    DateCase{"Sat, 31 Dec 2016 23:59:60 GMT", "2017-01-01T00:00:00Z"},
    DateCase{"Fri, 01 Mar 2041 00:00:00 GMT", "2041-03-01T00:00:00Z"},
    DateCase{"Thu, 01 Jan 1970 00:00:00 GMT", "1970-01-01T00:00:00Z"},
    DateCase{"Mon, 01 Jan 0001 00:00:00 GMT", "0001-01-01T00:00:00Z"},
    DateCase{"Fri, 31 Dec 9999 23:59:59 GMT", "9999-12-31T23:59:59Z"}));

INSTANTIATE_TEST_SUITE_P(ZoneNames, FeedDates, testing::Values(
    DateCase{"Thu, 01 Oct 2026 08:00:00 UT", "2026-10-01T08:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 UTC", "2026-10-01T08:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 Z", "2026-10-01T08:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 EST", "2026-10-01T13:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 EDT", "2026-10-01T12:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 CST", "2026-10-01T14:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 CDT", "2026-10-01T13:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 MST", "2026-10-01T15:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 MDT", "2026-10-01T14:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 PST", "2026-10-01T16:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 PDT", "2026-10-01T15:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 GMT+02:00", "2026-10-01T06:00:00Z"},
    DateCase{"Thu, 01 Oct 2026 08:00:00 Neverland", ""},
    DateCase{"Thu, 01 Oct 2026 08:00:00 +9900", ""},
    DateCase{"Thu, 01 Oct 2026 08:00:00 +", ""}));

INSTANTIATE_TEST_SUITE_P(Numbers, FeedDates, testing::Values(
    DateCase{"2026-10-01T08:30:15Z", "2026-10-01T08:30:15Z"},
    DateCase{" 2026-10-01T08:30:15.123+02:00\n", "2026-10-01T06:30:15.123Z"},
    DateCase{"2026-10-01T08:30:15+0200", "2026-10-01T06:30:15Z"},
    DateCase{"2026-10-01 08:30:15", "2026-10-01T08:30:15Z"},
    DateCase{"2026-10-01 08:30:15+03:00", ""},
    DateCase{"2026-10-01 08:30", ""},
    DateCase{"26-10-01 08:30:15", ""},
    DateCase{"2026-10-01", ""}));

INSTANTIATE_TEST_SUITE_P(Unreadable, FeedDates, testing::Values(
    DateCase{"", ""},
    DateCase{" \n", ""},
    DateCase{"soon", ""},
    DateCase{"Sun, 15 Dec 2024 12:15 PM", ""},
    DateCase{"Sat, Dec 16 2023 02:02:33 PM", ""},
    DateCase{"Do, 01 Okt 2026 08:30:15 GMT", ""},
    DateCase{"Thu, 01 Oktober 2026 08:30:15 GMT", ""},
    DateCase{"Thu, 31 Feb 2026 08:30:15 GMT", ""},
    DateCase{"Thu, 00 Oct 2026 08:30:15 GMT", ""},
    DateCase{"Thu, 001 Oct 2026 08:30:15 GMT", ""},
    DateCase{"Thu, 01 Oct 20260 08:30:15 GMT", ""},
    DateCase{"Thu, 01 Oct 0000 08:30:15 GMT", ""},
    DateCase{"Mon, 01 Jan 0001 00:00:00 +0100", ""},
    DateCase{"Fri, 31 Dec 9999 23:59:59 -2359", ""},
    DateCase{"Fri, 31 Dec 9999 23:59:60 GMT", ""},
    DateCase{"9999-12-31 23:59:60", ""},
    DateCase{"Thu, 01 Oct 2026 24:30:15 GMT", ""},
    DateCase{"Thu, 01 Oct 2026 08:60:15 GMT", ""},
    DateCase{"Thu, 01 Oct 2026", ""},
    DateCase{"Thu 01 Oct 2026 08:30:15 GMT", ""},
    DateCase{"Thu, 01 Oct 2026 08:30:15 GMT and more", ""},
    DateCase{"99999999999999999999-01-01T00:00:00Z", ""}));

}  // namespace
}  // namespace newsroom
