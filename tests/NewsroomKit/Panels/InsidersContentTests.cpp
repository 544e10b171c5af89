#include <gtest/gtest.h>

#include "NewsroomKit/Panels/InsidersContent.h"

namespace kit {
namespace {

Trade tradeOf(std::string code, double shares, std::string day) {
    return {.security = "Common Stock",
            .date = std::move(day),
            .code = std::move(code),
            .acquired = false,
            .shares = shares,
            .price = 10,
            .value = shares * 10,
            .after = 300,
            .direct = true};
}

FollowedFiling formOf(std::string accession, std::string period, std::vector<Trade> trades,
                      std::string form = "4", std::int64_t issuer = appleCIK) {
    return {.company = appleCIK,
            .filing = {.accession = std::move(accession), .form = form},
            .trades = OwnershipForm{.form = form,
                                    .period = std::move(period),
                                    .issuer = {.cik = issuer},
                                    .owners = {{.cik = 77, .name = "Ash Jan B."}},
                                    .trades = std::move(trades)}};
}

FollowedFiling noticeOf(std::string person, double shares) {
    return {.company = appleCIK,
            .filing = {.accession = "n", .form = "144"},
            .notice = SaleNotice{.issuer = {.cik = appleCIK},
                                 .person = std::move(person),
                                 .shares = shares,
                                 .saleDate = "2026-11-20",
                                 .planDates = {"2026-02-20"}}};
}

TEST(Insiders, OfOnePersonWithinThreeDaysAreOneRowWithTheNotice) {
    const auto content =
        insidersContent({formOf("a", "2026-11-16", {tradeOf("M", 200, "2026-11-16")}),
                         formOf("b", "2026-11-18",
                                {tradeOf("S", 60, "2026-11-18"), tradeOf("S", 40, "2026-11-19")}),
                         formOf("c", "2026-11-25", {tradeOf("M", 5, "2026-11-25")}),
                         noticeOf("Jan B Ash", 100), noticeOf("Elm Ash", 100)},
                        {});
    ASSERT_EQ(content.rows.size(), 2U);
    EXPECT_EQ(content.routine, 1U);
    const auto& planned = content.rows[0];
    EXPECT_EQ(planned.person, "Elm Ash");
    const auto& row = content.rows[1];
    EXPECT_EQ(row.accessions, (std::vector<std::string>{"a", "b", "n"}));
    EXPECT_EQ(row.firstDay + " to " + row.lastDay, "2026-11-16 to 2026-11-19");
    ASSERT_EQ(row.sums.size(), 2U);
    EXPECT_EQ(row.sums[1].shares, 100);
    EXPECT_EQ(row.shareOfHolding, 25);
    EXPECT_EQ(row.planDay, "2026-02-20");
}

TEST(Insiders, AreLeftOutForForeignSharesAndReplacedByAmendmentsThatHaveTrades) {
    const auto sold = std::vector{tradeOf("S", 10, "2026-11-18")};
    EXPECT_TRUE(insidersContent({formOf("a", "2026-11-18", sold, "4", 999)}, {}).rows.empty());
    const auto original = formOf("a", "2026-11-18", sold);
    auto rows = insidersContent({original, formOf("b", "2026-11-18", sold, "4/A")}, {}).rows;
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].accessions, (std::vector<std::string>{"b"}));
    EXPECT_TRUE(rows[0].isAmended);
    rows = insidersContent({original, formOf("b", "2026-11-18", {}, "4/A")}, {}).rows;
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].accessions, (std::vector<std::string>{"a"}));
}

}  // namespace
}  // namespace kit
