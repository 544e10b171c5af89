#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/FilingsContent.h"

namespace kit {
namespace {

FollowedFiling filingOf(const std::string& form, const char* accepted, const char* filed,
                        const std::string& number = "0000320193-26-000001") {
    return {
        .company = appleCIK,
        .filing = {
            .accession = number, .form = form, .filed = filed, .accepted = parseISO8601(accepted)}};
}

TEST(FilingsContent, TheClockIsNewYorksAndTheLegalDayCountsFromIt) {
    struct Case {
        const char* accepted;
        const char* filed;
        const char* clock;
        int daysOff;
    };
    for (const auto& [accepted, filed, clock, daysOff] : std::vector<Case>{
             {"2026-11-02T18:08:27-05:00", "2026-11-03", "18:08", 1},
             {"2026-11-20T17:31:00-05:00", "2026-11-23", "17:31", 3},
             {"2026-07-01T00:30:00Z", "2026-06-30", "20:30", 0},
             {"2026-07-02T16:31:00-04:00", "2026-07-02", "16:31", 0},
         }) {
        const auto row = filingRows({filingOf("8-K", accepted, filed)}, {}).front();
        EXPECT_EQ(row.acceptedClock.value_or(""), clock) << accepted;
        EXPECT_EQ(row.daysOff, daysOff) << accepted;
    }
    auto doubtful = filingOf("8-K", "2026-11-02T18:08:27Z", "2026-11-03");
    doubtful.filing.acceptedDoubtful = true;
    EXPECT_FALSE(filingRows({doubtful}, {}).front().acceptedClock) << "it may be any zone's";
}

TEST(FilingsContent, AnAmendmentAndWhatItAmendsLeadToEachOther) {
    const auto original = filingOf("8-K", "2026-11-02T12:00:00Z", "2026-11-02", "one");
    auto amendment = filingOf("8-K/A", "2026-11-04T12:00:00Z", "2026-11-04", "two");
    amendment.filing.amends = "one";
    const std::vector filings{original, amendment};
    EXPECT_TRUE(filingRows(filings, {.form = "8-K"}).back().isAmended);
    EXPECT_EQ(filingRecord(filings, "one")->amendedBy.at(0).accession, "two");
    EXPECT_EQ(filingRecord(filings, "two")->amends->filed, "2026-11-02");
    EXPECT_EQ(filingRecord({amendment}, "two")->amends->accession, "one") << "seen or not";
    EXPECT_FALSE(filingRecord(filings, "three"));
}

TEST(FilingsContent, NotesStandBesideTheirRows) {
    auto followed = filingOf("4", "2026-11-02T12:00:00Z", "2026-11-02");
    followed.trades = OwnershipForm{.issuer = {.cik = appleCIK},
                                    .trades = {{.code = "S", .acquired = false, .notes = {"F2"}},
                                               {.code = "Y", .notes = {"F9"}}},
                                    .footnotes = {{"F1", "one"}, {"F2", "An average."}}};
    const auto trades = filingRecord({followed}, followed.filing.accession)->trades;
    EXPECT_EQ(trades.at(0).verb, "sold");
    EXPECT_EQ(trades.at(0).notes.at(0).text, "An average.");
    EXPECT_EQ(trades.at(1).verb, "code Y");
    EXPECT_EQ(trades.at(1).notes.at(0).text, "") << "a note that the form lacks";
}

TEST(FilingsContent, AReleaseIsTheExhibitsTextByCompanyDayAndTitle) {
    auto filing = filingOf("8-K", "2026-11-02T21:31:00Z", "2026-11-02");
    filing.release = FilingText{.lines = {"Exhibit 99.1", "Apple reports — a “quiet” quarter"}};
    const PressRelease same{.title = "Apple Reports a \"Quiet\" Quarter",
                            .company = "Apple Inc.",
                            .published = parseISO8601("2026-11-02T21:30:00Z")};
    EXPECT_TRUE(isSameText(filing, same));
    EXPECT_EQ(filingRows({filing}, {}, {same}).front().release, same);
    auto other = same;
    other.company = "Fig Bakeries";
    EXPECT_FALSE(isSameText(filing, other));
    other = same;
    other.published = parseISO8601("2026-11-04T21:30:00Z");
    EXPECT_FALSE(isSameText(filing, other));
    other = same;
    other.title = "Apple Reports a Loud Quarter";
    EXPECT_FALSE(isSameText(filing, other));
    filing.release.reset();
    EXPECT_FALSE(isSameText(filing, same)) << "the exhibit has not been read";
}

}  // namespace
}  // namespace kit
