#include <gtest/gtest.h>

#include <fmt/format.h>

#include "NewsroomKit/Filings/Filing.h"

namespace kit {
namespace {

std::vector<Filing> filingsIn(std::string_view text) {
    auto parsed = parseFilings(text);
    EXPECT_TRUE(parsed.has_value()) << text;
    return parsed ? std::move(parsed).value() : std::vector<Filing>{};
}

constexpr std::string_view columns = R"("filings":{"recent":{
    "accessionNumber":["0000320193-26-000008","0001140361-26-000009","0000320193-26-000010"],
    "filingDate":["2026-11-03","2026-11-03","2026-11-05"],
    "reportDate":["2026-10-30","","2026-10-30"],
    "acceptanceDateTime":["2026-11-02T23:08:27.000Z","2026-11-03T21:00:00.000Z","2026-11-05T21:00:00.000Z"],
    "form":["8-K","4","8-K/A"], "items":["2.02,9.01","",""],
    "primaryDocument":["a8k.htm","xslF345X06/form4.xml",""], "newColumn":[1,2,3]},"files":[]}})";

TEST(Filings, AreReadFromSubmissionsByTheNamesOfTheirColumns) {
    const auto list =
        filingsIn(R"({"cik":"0000320193","name":"Apple Inc.",)" + std::string(columns));
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(list[0].accession, "0000320193-26-000010");
    EXPECT_EQ(list[0].amends, "0000320193-26-000008");
    EXPECT_EQ(list[0].documentURL, std::nullopt);
    EXPECT_EQ(list[1].period, std::nullopt);
    EXPECT_EQ(list[1].documentURL,
              "https://www.sec.gov/Archives/edgar/data/320193/000114036126000009/form4.xml");
    EXPECT_EQ(list[2].items, (std::vector<std::string>{"2.02", "9.01"}));
    EXPECT_EQ(list[2].accepted, parseISO8601("2026-11-02T18:08:27-05:00"));
    EXPECT_EQ(list[2].acceptedDoubtful, std::nullopt);
}

TEST(Filings, DoubtTheTimesOfOtherCompanies) {
    const auto list = filingsIn(R"({"cik":"0000004127","name":"Oak",)" + std::string(columns));
    EXPECT_EQ(list.at(0).acceptedDoubtful, true);
    EXPECT_EQ(list.at(0).parties.at(0).cik, 4127);
}

std::string party(std::string_view number, std::string_view title) {
    return fmt::format(
        "<entry><title>{1}</title><summary>&lt;b&gt;Filed:&lt;/b&gt; 2026-11-12 &lt;b&gt;AccNo"
        "</summary><updated>2026-11-12T18:02:43-05:00</updated><category term='4'/>"
        "<id>urn:tag:sec.gov,2008:accession-number={0}</id></entry>",
        number, title);
}

TEST(Filings, OfTheLatestFeedAreListedOnceWithAllTheirParties) {
    const auto list = filingsIn(
        "<?xml version='1.0' encoding='ISO-8859-1'?><feed><title>Latest Filings - x</title>" +
        party("0002063236-26-000004", "4 - M\xFCller - Ash Jan (0002063236) (Reporting)") +
        party("0002063236-26-000005", "4 - Elm (Corp) (0000085535) (Filed by)") +
        party("0002063236-26-000004", "4 - Pear Inc. (0001673743) (Issuer)") + "</feed>");
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].parties, (std::vector{FilingParty{"Elm (Corp)", 85535, PartyRole::filedBy}}));
    EXPECT_EQ(list[1].parties,
              (std::vector{FilingParty{"M\xC3\xBCller - Ash Jan", 2063236, PartyRole::reporting},
                           FilingParty{"Pear Inc.", 1673743, PartyRole::issuer}}));
    EXPECT_EQ(list[1].filed, "2026-11-12");
}

TEST(Filings, OfACompanyFeedHaveItemsAndSurviveAMisspeltElement) {
    const auto list = filingsIn(
        "<feed><company-info><cik>0000320193</cik><conformed-name>Apple Inc.</conformed-name>"
        "</company-info><entry><category term='8-K'/><content>"
        "<accession-nunber>0000320193-26-000012</accession-nunber>"
        "<filing-date>2026-11-03</filing-date><items-desc>items 2.02 and 9.01</items-desc>"
        "</content><updated>2026-11-02T18:08:27-05:00</updated></entry></feed>");
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].items, (std::vector<std::string>{"2.02", "9.01"}));
    EXPECT_EQ(list[0].filed, "2026-11-03");
    EXPECT_EQ(list[0].parties, (std::vector{FilingParty{"Apple Inc.", 320193, PartyRole::filer}}));
}

TEST(Filings, AreNotReadFromWhatSaysSomethingElse) {
    const std::vector<std::pair<std::string_view, FilingsError>> cases{
        {"<html><title>SEC.gov | Your Request Originates from an Undeclared Automated Tool</title>",
         FilingsError::undeclared},
        {"<!DOCTYPE html><title>SEC.gov | Request Rate Threshold Exceeded</title>",
         FilingsError::threshold},
        {"<!doctype html><h1>No matching CIK.</h1>", FilingsError::noCompany},
        {"<html><title>Maintenance</title>", FilingsError::notFilings},
        {"", FilingsError::notFilings},
        {"{}", FilingsError::notFilings},
        {R"({"filings":{"recent":)", FilingsError::malformed},
        {R"({"accessionNumber":["0000320193-26-000012"],"form":[]})", FilingsError::malformed},
        {"<feed><title>News</title><entry><title>A</title></entry></feed>",
         FilingsError::notFilings},
        {"<feed><title>Latest Filings", FilingsError::malformed},
    };
    for (const auto& [text, error] : cases) {
        const auto parsed = parseFilings(text);
        ASSERT_FALSE(parsed.has_value()) << text;
        EXPECT_EQ(parsed.error(), error) << text;
    }
    EXPECT_TRUE(filingsIn("<feed><title>Latest Filings - now</title></feed>").empty());
}

}  // namespace
}  // namespace kit
