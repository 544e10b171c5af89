#include <gtest/gtest.h>

#include "NewsroomKit/Feeds/FeedDates.h"

namespace kit {
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

INSTANTIATE_TEST_SUITE_P(
    NamedMonths, FeedDates,
    testing::Values(DateCase{"Thu, 01 Oct 2026 08:30:15 +0000", "2026-10-01T08:30:15Z"},
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

INSTANTIATE_TEST_SUITE_P(
    ZoneNames, FeedDates,
    testing::Values(DateCase{"Thu, 01 Oct 2026 08:00:00 UT", "2026-10-01T08:00:00Z"},
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
                    DateCase{"Thu, 01 Oct 2026 08:00:00 BST", "2026-10-01T07:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 CET", "2026-10-01T07:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 CEST", "2026-10-01T06:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 EET", "2026-10-01T06:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 EEST", "2026-10-01T05:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 MSK", "2026-10-01T05:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 IST", "2026-10-01T02:30:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 JST", "2026-09-30T23:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 AEST", "2026-09-30T22:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 AEDT", "2026-09-30T21:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 NZST", "2026-09-30T20:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 NZDT", "2026-09-30T19:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 GMT+02:00", "2026-10-01T06:00:00Z"},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 Neverland", ""},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 +9900", ""},
                    DateCase{"Thu, 01 Oct 2026 08:00:00 +", ""}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, FeedDates,
    testing::Values(DateCase{"2026-10-01T08:30:15Z", "2026-10-01T08:30:15Z"},
                    DateCase{" 2026-10-01T08:30:15.123+02:00\n", "2026-10-01T06:30:15.123Z"},
                    DateCase{"2026-10-01T08:30:15+0200", "2026-10-01T06:30:15Z"},
                    DateCase{"2026-10-01 08:30:15", "2026-10-01T08:30:15Z"},
                    DateCase{"2026-10-01 08:30:15+03:00", "2026-10-01T05:30:15Z"},
                    DateCase{"2026-10-01 08:30:15.25 UTC", "2026-10-01T08:30:15Z"},
                    DateCase{"2026-10-01 08:30", "2026-10-01T08:30:00Z"},
                    DateCase{"2026-10-01T08:30+02:00", "2026-10-01T06:30:00Z"},
                    DateCase{"2026-10-01", "2026-10-01T00:00:00Z"},
                    DateCase{"2026/10/1 8:30:15", "2026-10-01T08:30:15Z"},
                    DateCase{"26-10-01 08:30:15", ""}, DateCase{"10/01/2026 08:30:15", ""},
                    DateCase{"2026-10", ""}, DateCase{"2026-10-01T", ""},
                    DateCase{"2026-10-0108:30:15", ""}, DateCase{"2026/10-01 08:30:15", ""}));

INSTANTIATE_TEST_SUITE_P(
    LooseForms, FeedDates,
    testing::Values(DateCase{"Thu 01 Oct 2026 08:30:15 GMT", "2026-10-01T08:30:15Z"},
                    DateCase{"Thu, 01 Oct 2026", "2026-10-01T00:00:00Z"},
                    DateCase{"1 October 2026", "2026-10-01T00:00:00Z"},
                    DateCase{"Oct 01 2026 08:30:15 GMT", "2026-10-01T08:30:15Z"},
                    DateCase{"Thu, Oct 1 2026 08:30 -0700", "2026-10-01T15:30:00Z"},
                    DateCase{"October 1, 2026", "2026-10-01T00:00:00Z"},
                    DateCase{"Thu Oct  1 08:30:15 2026", "2026-10-01T08:30:15Z"},
                    DateCase{"Thu Oct 01 08:30:15 +0200 2026", "2026-10-01T06:30:15Z"},
                    DateCase{"Thu Oct 01 2026 08:30:15 GMT+0200 (Central European Time)",
                             "2026-10-01T06:30:15Z"},
                    DateCase{"Thursday, 01-Oct-26 08:30:15 GMT", "2026-10-01T08:30:15Z"},
                    DateCase{"Oct Nov Dec 01 2026 08:30:15 GMT", ""}, DateCase{"Oct 2026", ""},
                    DateCase{"Thu 1 2026", ""}, DateCase{"Thu Oct 1 08:30:15", ""},
                    DateCase{"Thu, 01 Oct 2026 08:30:15 GMT (open", ""}));

INSTANTIATE_TEST_SUITE_P(
    Languages, FeedDates,
    testing::Values(DateCase{"Do, 01 Okt 2026 08:30:15 GMT", "2026-10-01T08:30:15Z"},
                    DateCase{"Donnerstag, 1. Oktober 2026 08:30:15 GMT", "2026-10-01T08:30:15Z"},
                    DateCase{"Di, 03 Mär 2026 08:30:15 GMT", "2026-03-03T08:30:15Z"},
                    DateCase{"di, 3 mrt 2026 08:30:15 GMT", "2026-03-03T08:30:15Z"},
                    DateCase{"mar. 3 févr. 2026 08:30:15 GMT", "2026-02-03T08:30:15Z"},
                    DateCase{"SAM, 01 AOÛT 2026 08:30:15 GMT", "2026-08-01T08:30:15Z"},
                    DateCase{"lun, 01 juin 2026 08:30:15 GMT", "2026-06-01T08:30:15Z"},
                    DateCase{"mer, 01 juil. 2026 08:30:15 GMT", "2026-07-01T08:30:15Z"},
                    DateCase{"mar, 03 mar 2026 08:30:15 GMT", "2026-03-03T08:30:15Z"},
                    DateCase{"mar, 01 dic 2026 08:30:15 GMT", "2026-12-01T08:30:15Z"},
                    DateCase{"sáb, 1 de agosto de 2026 08:30:15 GMT", "2026-08-01T08:30:15Z"},
                    DateCase{"ven, 02 gen 2026 08:30:15 GMT", "2026-01-02T08:30:15Z"},
                    DateCase{"mar, 01 set 2026 08:30:15 GMT", "2026-09-01T08:30:15Z"},
                    DateCase{"qui, 01 out 2026 08:30:15 GMT", "2026-10-01T08:30:15Z"},
                    DateCase{"sexta-feira, 01 mai 2026 08:30:15 GMT", "2026-05-01T08:30:15Z"},
                    DateCase{"Чт, 01 Oct 2026 08:30:15 GMT", "2026-10-01T08:30:15Z"},
                    DateCase{"mer, 01 jui 2026 08:30:15 GMT", ""},
                    DateCase{"Чт, 01 окт 2026 08:30:15 GMT", ""}));

INSTANTIATE_TEST_SUITE_P(Unreadable, FeedDates,
                         testing::Values(DateCase{"", ""}, DateCase{" \n", ""},
                                         DateCase{"soon", ""},
                                         DateCase{"Sun, 15 Dec 2024 12:15 PM", ""},
                                         DateCase{"Sat, Dec 16 2023 02:02:33 PM", ""},
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
                                         DateCase{"Thu, 01 Oct 2026 08:30:15 GMT and more", ""},
                                         DateCase{"99999999999999999999-01-01T00:00:00Z", ""}));

}  // namespace
}  // namespace kit
