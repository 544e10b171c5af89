#include "NewsroomKit/Editorial/MarketNews.h"

#include <gtest/gtest.h>

#include "NewsroomKit/Editorial/AppleTopic.h"
#include "NewsroomKit/Editorial/StockNews.h"

namespace kit {
namespace {

TEST(StockNews, knowsTheSharePriceFromGoodsInStock) {
    const struct {
        const char* text;
        bool isStockNews;
    } cases[] = {
        {"AAPL hits record", true},
        {"Apple shares rose 3%", true},
        {"Apple Shares Rallied", true},
        {"Apple shares rosette recipe", false},
        {"Apple shares  rose", false},
        {"Apple shares\u00A0rose", true},
        {"Megashares rose", false},
        {"9shares rose", false},
        {"Apple shares a photo, then shares fell", true},
        {"Apple’s stock", true},
        {"S&P 500 news", true},
        {"A trillion reasons", true},
        {"Apple Stocks app gets new widgets", false},
        {"Back in stock: AAPL mugs", false},
        {"Stocks of paper", false},
        {"", false},
    };
    for (const auto& [text, isStockNews] : cases) {
        EXPECT_EQ(StockNews::isStockNews(text), isStockNews) << text;
    }
}

TEST(StockNews, aStoryIsJudgedByItsTitle) {
    Story story;
    story.summary = "AAPL hits record";
    EXPECT_FALSE(StockNews::isStockNews(story));
    story.title = "AAPL hits record";
    EXPECT_TRUE(StockNews::isStockNews(story));
}

TEST(MarketNews, theFirstReasonInOrderWins) {
    using enum MarketNews::Reason;
    const struct {
        const char* text;
        std::optional<MarketNews::Reason> reason;
    } cases[] = {
        {"Apple reports Q4 revenue", earnings},
        {"Analyst upgrades Apple", analysts},
        {"Analyst on Apple's earnings", earnings},
        {"Judge in the App Store case", legal},
        {"Tariff on imports", trade},
        {"White House and TSMC", trade},
        {"Foxconn factories", supply},
        {"Counterpoint: shipments up", sales},
        {"John Ternus walks", leadership},
        {"Tim Cook walks", std::nullopt},
        {"Apple acquires a studio", deal},
        {"Apple shares rose", stock},
        {"AAPL at noon", stock},
        {"How to check your earnings", std::nullopt},
        {"Review: best-selling mug", std::nullopt},
        {"Stocks app and AAPL", std::nullopt},
        {"Urban legends", std::nullopt},
        {"Apple opens a store", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [text, reason] : cases) EXPECT_EQ(MarketNews::reason(text), reason) << text;
}

TEST(MarketNews, saysWhichPhraseDecided) {
    using Where = RuleHit::Where;
    EXPECT_EQ(MarketNews::explain("How to earn earnings").why,
              (RuleHit{"market exclusions", "how to", Where::text}));
    EXPECT_EQ(MarketNews::explain("Profit and revenue").why,
              (RuleHit{"market phrases for earnings", "revenue", Where::text}));
    EXPECT_EQ(MarketNews::explain("Stock photos").why,
              (RuleHit{"share price exclusions", "stock photos", Where::text}));
}

TEST(AppleTopic, needsAWholeWord) {
    const struct {
        const char* text;
        bool matches;
    } cases[] = {
        {"The Mac’s screen", true},
        {"Macro lens on BIOS day", false},
        {"iOS 26.1 arrives", true},
        {"Rain in Cupertino", true},
        {"Eddy Cue talks films", true},
        {"Phil Schiller talks films", false},
        {"Ｓｉｒｉ answers", true},
        {"Pineapples", false},
        {"A vision", false},
        {"", false},
    };
    for (const auto& [text, matches] : cases) EXPECT_EQ(AppleTopic::matches(text), matches) << text;
}

}  // namespace
}  // namespace kit
