#include "NewsroomKit/Markets/PriceMoves.h"

#include <chrono>
#include <limits>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace kit {
namespace {

using namespace std::chrono_literals;

const TimeZone kNewYork(kExchangeZone);

Instant moment(std::string_view text) { return parseISO8601(text).value(); }

/// Daily closes from Monday, 2 November 2026, stamped with midnight in Greenwich.
StockQuote yearOf(const std::vector<double>& closes, std::string symbol = "AAPL",
                  std::string name = "Apple Inc.") {
    StockQuote quote{.symbol = std::move(symbol), .name = std::move(name), .range = "1y"};
    auto day = std::chrono::sys_days(std::chrono::year(2026) / 11 / 2);
    for (const auto close : closes) {
        quote.points.push_back({day, close});
        day += std::chrono::days(1);
    }
    return quote;
}

std::string told(const std::vector<PriceMove>& moves) {
    std::string text;
    for (const auto& move : moves) text += fmt::format("{} {:.2f}; ", move.day, move.change);
    return text;
}

TEST(PriceMoves, AreLargeAndUnusual) {
    const auto nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        std::string_view name;
        std::vector<double> closes;
        std::string_view moves;
    } cases[] = {
        {"no point", {}, ""},
        {"one point", {100}, ""},
        {"a calm week and a fall", {100, 100.5, 100, 100.5, 96}, "2026-11-06 -4.48; "},
        {"just one and a half per cent", {100, 100, 100, 101.5}, "2026-11-05 1.50; "},
        {"a little less", {100, 100, 100, 101.49}, ""},
        {"twice the usual change", {100, 101, 100, 101, 103.02}, "2026-11-06 2.00; "},
        {"less than that", {100, 102, 100, 102, 105}, ""},
        {"the only change is its own usual one", {100, 90}, ""},
        {"the newest first", {100, 104, 104, 104, 104, 100}, "2026-11-07 -3.85; 2026-11-03 4.00; "},
        {"gaps and no numbers are no days",
         {100, 0, -1, nan, 100, 100, 100, 104},
         "2026-11-09 4.00; "},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(told(priceMoves(yearOf(each.closes), kNewYork)), each.moves) << each.name;
    }
}

TEST(PriceMoves, TakeTheMiddleOfTheUsualChanges) {
    const auto moves = priceMoves(yearOf({100, 100, 101, 104.03}), kNewYork);
    ASSERT_EQ(moves.size(), 1u);
    EXPECT_NEAR(moves[0].usual, 1, 1e-6);
    // Of an even number the mean of the two in the middle.
    const auto even = priceMoves(yearOf({100, 100, 101, 101, 105.04}), kNewYork);
    ASSERT_EQ(even.size(), 1u);
    EXPECT_NEAR(even[0].usual, 0.5, 1e-6);
}

TEST(PriceMoves, LeaveOutPointsThatAreOutOfOrderOrInTheFuture) {
    auto quote = yearOf({100, 100, 100, 104});
    quote.points.push_back({quote.points.front().time, 50});
    quote.points.push_back({quote.points.back().time + 240h, 300});
    quote.asOf = quote.points[3].time;
    EXPECT_EQ(told(priceMoves(quote, kNewYork)), "2026-11-05 4.00; ");
    quote.points.back().time = *quote.asOf + 5min;
    EXPECT_EQ(priceMoves(quote, kNewYork).size(), 2u);
}

TEST(PriceMoves, BelongToTheDayOfTheExchange) {
    auto quote = yearOf({100, 100, 104});
    // Openings in New York, the clocks of which were set back on 1 November.
    quote.points[0].time = moment("2026-10-29T13:30:00Z");
    quote.points[1].time = moment("2026-10-30T13:30:00Z");
    quote.points[2].time = moment("2026-11-02T14:30:00Z");
    auto moves = priceMoves(quote, kNewYork);
    ASSERT_EQ(told(moves), "2026-11-02 4.00; ");
    EXPECT_EQ(moves[0].closeBefore, moment("2026-10-30T20:00:00Z"));
    EXPECT_EQ(moves[0].closeOfDay, moment("2026-11-02T21:00:00Z"));

    // In the morning of Taipei it is still the evening before in New York.
    quote.points[2].time = moment("2026-11-02T01:00:00Z");
    quote.sessionClose = moment("2026-11-02T05:30:00Z");
    moves = priceMoves(quote, TimeZone("Asia/Taipei"));
    ASSERT_EQ(told(moves), "2026-11-02 4.00; ");
    EXPECT_EQ(moves[0].closeOfDay, moment("2026-11-02T05:30:00Z"));
    EXPECT_EQ(told(priceMoves(quote, kNewYork)), "2026-11-01 4.00; ");
}

Story headline(std::string id, std::string title, std::string_view at,
               Sourcing sourcing = Sourcing::report) {
    return {.id = id,
            .link = "https://" + id + ".example/a",
            .title = std::move(title),
            .publishedAt = moment(at),
            .sourceID = id,
            .sourceName = "Outlet " + id,
            .sourcing = sourcing};
}

std::string reasons(const PriceMove& move) {
    std::string text;
    for (const auto& [reason, stories] : move.reasons) {
        text += std::string(rawValue(reason)) + ":";
        for (const auto& story : stories) text += " " + story;
        text += "; ";
    }
    return text;
}

/// Of the fall on Thursday, 5 November.
std::string reasonsAmong(const std::vector<Story>& stories,
                         const std::vector<StoryCluster>& clusters = {},
                         const StockQuote& quote = yearOf({100, 100, 100, 96})) {
    auto moves = priceMoves(quote, kNewYork);
    EXPECT_EQ(moves.size(), 1u);
    addReasons(moves, quote, stories, clusters);
    return reasons(moves[0]);
}

TEST(ReasonsOfMoves, StandInHeadlinesFromOneCloseToTheOther) {
    const std::string title = "Apple sued over its app fees";
    EXPECT_EQ(reasonsAmong({headline("atCloseBefore", title, "2026-11-04T21:00:00Z"),
                            headline("after", title, "2026-11-04T21:00:01Z"),
                            headline("atClose", title, "2026-11-05T21:00:00Z"),
                            headline("tooLate", title, "2026-11-05T21:00:01Z")}),
              "Legal: after atClose; ");
    EXPECT_EQ(
        reasonsAmong({headline("other", "Nokia sued over its app fees", "2026-11-05T15:00:00Z"),
                      headline("none", "Apple Watch has a lamp", "2026-11-05T15:00:00Z")}),
        "");
}

TEST(ReasonsOfMoves, ComeInTheOrderOfTheirCoverage) {
    const auto at = "2026-11-05T15:00:00Z";
    const std::vector<Story> stories{
        headline("a", "Apple raises iPhone sales forecast after strong demand", at),
        headline("b", "Apple sued over its app fees", "2026-11-05T15:10:00Z"),
        headline("c", "Lawsuit over app fees hits Apple", "2026-11-05T15:20:00Z"),
        headline("d", "Tariffs on Apple products announced", at, Sourcing::confirmed)};
    const std::vector<StoryCluster> together{{.id = "b", .storyIDs = {"b", "c"}}};
    EXPECT_EQ(reasonsAmong(stories, together), "Trade: d; Legal: b c; Earnings: a; ");
    EXPECT_EQ(reasonsAmong(stories), "Trade: d; Earnings: a; Legal: b c; ") << "the earliest";
    // The firmest member speaks for its cluster.
    auto confirmed = stories;
    confirmed[2].sourcing = Sourcing::confirmed;
    EXPECT_EQ(reasonsAmong(confirmed, together), "Legal: b c; Trade: d; Earnings: a; ");
}

TEST(CompanyTopics, AreNamesAndSymbolsAsWholeWords) {
    const struct {
        std::string_view symbol, name, title;
        bool isOf;
    } cases[] = {
        {"AAPL", "Apple Inc.", "Apple sued", true},
        {"AAPL", "Apple Inc.", "Snapple sued", false},
        {"TSM", "TSMC", "TSMC raises its prices", true},
        {"TSM", "TSMC", "TSM: what to know", true},
        {"QCOM", "Qualcomm Inc.", "Qualcomm loses an appeal", true},
        {"AMZN", "Amazon.com, Inc.", "Amazon.com sells fewer books", true},
        {"2317.TW", "Hon Hai Precision Industry Co., Ltd.", "Hon Hai Precision Industry hires",
         true},
        {"2317.TW", "Hon Hai", "Over 2317 units sold", false},
        {"ON", "ON Semiconductor", "Prices go on rising", false},
        {"ON", "ON Semiconductor", "Shares of $ON fall", true},
        {"ON", "ON Semiconductor", "Shares of $ONE fall", false},
        {"ON", "ON Semiconductor", "The chip maker (ON) warns", true},
        {"ON", "ON Semiconductor", "ON Semiconductor warns", true},
        {"ARM", "Arm Holdings plc", "A shot in the arm for chips", false},
        {"ARM", "Arm Holdings plc", "Arm Holdings sues", true},
        {"BRK.B", "Berkshire Hathaway Inc.", "BRK buys", true},
        {"SPOT", "Spotify Technology S.A.", "A sweet spot for phones", false},
    };
    for (const auto& each : cases) {
        const StockQuote quote{.symbol = std::string(each.symbol), .name = std::string(each.name)};
        EXPECT_EQ(CompanyTopic(quote).matches(each.title), each.isOf)
            << each.symbol << ": " << each.title;
    }
}

TEST(SignalsOfMoves, AreOfDaysThatAreOverAndWereNotKnownBefore) {
    const auto year = yearOf({100, 104, 104, 104, 104, 100});
    const auto until = [&](std::size_t days) {
        auto cut = year;
        cut.points.resize(days);
        return cut;
    };
    const auto ids = [&](const std::optional<StockQuote>& before, std::string_view now) {
        std::string text;
        for (const auto& each : signalsOf(before, year, "https://quotes.example/", moment(now))) {
            text += each.id + " ";
        }
        return text;
    };
    const auto evening = "2026-11-07T22:00:00Z";
    EXPECT_EQ(ids(std::nullopt, evening), "") << "its past is no news";
    EXPECT_EQ(ids(until(5), evening), "price|AAPL|2026-11-07 ");
    EXPECT_EQ(ids(until(6), evening), "price|AAPL|2026-11-07 ") << "it was not over then";
    EXPECT_EQ(ids(until(5), "2026-11-07T20:59:59Z"), "") << "the market is open";
    EXPECT_EQ(ids(until(2), evening), "price|AAPL|2026-11-07 price|AAPL|2026-11-03 ");

    const auto found = signalsOf(until(5), year, "https://quotes.example/", moment(evening));
    EXPECT_EQ(found[0].kind, SignalKind::price);
    EXPECT_EQ(found[0].title, "AAPL fell by 3.8 %, against 0.0 % on a usual day.");
    EXPECT_EQ(found[0].happenedAt, moment("2026-11-07T21:00:00Z"));
}

}  // namespace
}  // namespace kit
