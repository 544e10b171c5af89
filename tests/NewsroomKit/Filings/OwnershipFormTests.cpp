#include <gtest/gtest.h>

#include <fmt/format.h>

#include "NewsroomKit/Filings/OwnershipForm.h"
#include "NewsroomKit/Filings/SaleNotice.h"

namespace kit {
namespace {

std::string value(std::string_view name, std::string_view text) {
    return fmt::format("<{0}><value>{1}</value></{0}>", name, text);
}

std::string trade(std::string_view code, std::string_view shares, std::string_view price,
                  std::string_view date = "2026-11-18") {
    return "<nonDerivativeTransaction>" + value("securityTitle", "Common Stock") +
           value("transactionDate", date) +
           fmt::format(
               "<transactionCoding><transactionCode>{}</transactionCode>"
               "</transactionCoding><transactionAmounts>",
               code) +
           value("transactionShares", shares) +
           fmt::format("<transactionPricePerShare>{}</transactionPricePerShare>", price) +
           value("transactionAcquiredDisposedCode", code == "A" ? "A" : "D") +
           "</transactionAmounts></nonDerivativeTransaction>";
}

std::string form(std::string_view rows, std::string_view head = "", std::string_view notes = "") {
    return fmt::format(
        "\n<?xml version='1.0'?><ownershipDocument><documentType>4</documentType>"
        "<periodOfReport>2026-11-18-05:00</periodOfReport><issuer><issuerCik>0000320193</issuerCik>"
        "<issuerName>Apple Inc.</issuerName></issuer><reportingOwner><reportingOwnerId>"
        "<rptOwnerCik>77</rptOwnerCik><rptOwnerName>Ash Jan</rptOwnerName></reportingOwnerId>"
        "<reportingOwnerRelationship><isDirector>0</isDirector><isOfficer>true</isOfficer>"
        "<isOther>1</isOther><officerTitle>See Remarks</officerTitle></reportingOwnerRelationship>"
        "</reportingOwner>{}<nonDerivativeTable>{}</nonDerivativeTable><footnotes>{}</footnotes>"
        "<remarks>Chief Gardener</remarks></ownershipDocument>",
        head, rows, notes);
}

OwnershipForm read(std::string_view text, const std::optional<std::string>& filed = {}) {
    auto parsed = parseOwnership(text, filed);
    EXPECT_TRUE(parsed.has_value()) << text;
    return parsed ? std::move(parsed).value() : OwnershipForm{};
}

TEST(Ownership, SumsTranchesAndNeverAveragesInWhatHasNoPrice) {
    const auto read1 = read(form(trade("S", "100", "<value>10</value><footnoteId id='F2'/>") +
                                 trade("S", "300", "<value>20</value>") +
                                 trade("S", "50", "<footnoteId id='F1'/>") +
                                 trade("A", "1000.5", "<value>0</value>")));
    ASSERT_EQ(read1.trades.size(), 4U);
    EXPECT_EQ(read1.trades[0].notes, (std::vector<std::string>{"F2"}));
    EXPECT_EQ(read1.trades[2].price, std::nullopt);
    EXPECT_EQ(read1.trades[3].price, 0);
    EXPECT_EQ(read1.trades[3].value, std::nullopt);
    ASSERT_EQ(read1.summary.size(), 2U);
    EXPECT_EQ(read1.summary[0].shares, 450);
    EXPECT_EQ(read1.summary[0].averagePrice, 17.5);
    EXPECT_EQ(read1.summary[0].value, 7000);
    EXPECT_EQ(read1.summary[1].averagePrice, std::nullopt);
    EXPECT_EQ(read1.sentence,
              "Ash Jan sold 450 shares at an average of $17.50 and was granted 1,000.5 shares.");
    EXPECT_EQ(read1.owners.at(0).title, "Chief Gardener");
    EXPECT_EQ(read1.owners[0].roles, (std::vector{OwnerRole::officer, OwnerRole::other}));
}

TEST(Ownership, SaysOfAPlanOnlyWhatBoxOrNotesSay) {
    constexpr auto box = "<aff10b5One>{}</aff10b5One>";
    constexpr auto planned =
        "<footnote id='F1'>Under a Rule 10b5-1 plan adopted on August 6, 2025.</footnote>";
    const auto rows = trade("S", "1", "<value>2</value>");
    const auto unknown = read(form(rows, "", "<footnote id='F1'>Rule 10b5-12</footnote>"));
    EXPECT_EQ(unknown.plan, TradingPlan::unknown);
    EXPECT_EQ(read(form(rows, fmt::format(box, "false"))).plan, TradingPlan::no);
    EXPECT_EQ(read(form(rows, fmt::format(box, 1))).plan, TradingPlan::yes);
    const auto noted = read(form(rows, fmt::format(box, 0), planned));
    EXPECT_EQ(noted.plan, TradingPlan::yes);
    EXPECT_EQ(noted.sentence,
              "Ash Jan sold 1 share at $2.00 under a plan adopted on 6 August 2025.");
}

TEST(Ownership, MendsImpossibleDatesAndCountsBusinessDays) {
    const auto rows = trade("S", "1", "", "2035-11-18") + trade("S", "1", "", "0000-11-18") +
                      trade("S", "1", "", "0022-11-18") + trade("S", "1", "", "2026-11-20-05:00");
    const auto unfiled = read(form(rows));
    EXPECT_EQ(unfiled.trades[0].date, "2026-11-18");
    EXPECT_EQ(unfiled.trades[0].dateAsFiled, "2035-11-18");
    EXPECT_EQ(unfiled.trades[1].date, std::nullopt);
    EXPECT_EQ(unfiled.trades[2].date, "2026-11-18");
    EXPECT_EQ(unfiled.trades[3].date, "2026-11-20");
    EXPECT_EQ(unfiled.trades[3].dateAsFiled, std::nullopt);
    EXPECT_EQ(unfiled.late, std::nullopt);
    // Friday to Tuesday are two business days.
    EXPECT_EQ(read(form(trade("S", "1", "", "2026-11-20")), "2026-11-24").late, false);
    EXPECT_EQ(read(form(trade("S", "1", "", "2026-11-20")), "2026-11-25").late, true);
}

TEST(Ownership, IsFoundInsideAWholeSubmissionAndNowhereElse) {
    const auto inside = "<SUBMISSION><XML><a/></XML><TEXT><XML>" + form("") + "</XML>";
    EXPECT_EQ(read(inside).issuer.cik, 320193);
    EXPECT_EQ(parseOwnership("<html><body>SEC FORM 4").error(), FilingsError::notFilings);
    EXPECT_EQ(parseOwnership(form("").substr(0, 300)).error(), FilingsError::malformed);
}

TEST(SaleNotice, AddsUpClassesAndKeepsEachDateOfAPlan) {
    const std::string lot =
        "<n:securitiesInformation><n:noOfUnitsSold>100</n:noOfUnitsSold><n:aggregateMarketValue>"
        "250.5</n:aggregateMarketValue><n:approxSaleDate>11/24/2026</n:approxSaleDate>"
        "</n:securitiesInformation>";
    const auto parsed = parseSaleNotice(
        "\n<?xml version='1.0'?><n:edgarSubmission xmlns:n='x'><n:headerData><n:submissionType>"
        "144/A</n:submissionType></n:headerData><n:formData><n:issuerInfo><n:issuerCik>0000320193"
        "</n:issuerCik></n:issuerInfo>" +
        lot + lot +
        "<n:noticeSignature><n:planAdoptionDates><n:planAdoptionDate>02/20/2026"
        "</n:planAdoptionDate><n:planAdoptionDate>13/45/2026</n:planAdoptionDate>"
        "<n:planAdoptionDate>03/01/2026</n:planAdoptionDate></n:planAdoptionDates>"
        "</n:noticeSignature></n:formData></n:edgarSubmission>");
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(parsed.value().shares, 200);
    EXPECT_EQ(parsed.value().value, 501);
    EXPECT_EQ(parsed.value().saleDate, "2026-11-24");
    EXPECT_EQ(parsed.value().planDates, (std::vector<std::string>{"2026-02-20", "2026-03-01"}));
    EXPECT_TRUE(parsed.value().amendment);
}

}  // namespace
}  // namespace kit
