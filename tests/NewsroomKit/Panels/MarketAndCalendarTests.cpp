#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "NewsroomKit/Panels/BoardContent.h"
#include "NewsroomKit/Panels/CountdownContent.h"
#include "NewsroomKit/Panels/QuoteContent.h"

namespace kit {
namespace {

using namespace std::chrono_literals;
using std::chrono::days;

const Instant kNoon = std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + 12h;

int daysBetween(Instant from, Instant to) {
    return static_cast<int>((std::chrono::floor<days>(to) - std::chrono::floor<days>(from)) /
                            days(1));
}

/// "next | other | other", each title with its days, "?" without a date.
std::string textOf(const CountdownContent& content) {
    const auto text = [](const CountdownRow& row) {
        return row.title + " " + (row.starts ? std::to_string(row.days) : "?");
    };
    auto all = content.next ? text(*content.next) : "none";
    for (const auto& row : content.others) all += " | " + text(row);
    return all;
}

TEST(CountdownContent, TheNextEventHasADateAndIsNoAnniversaryAndWhatIsOverStaysTwoDays) {
    const AppleCalendarEvent fair{.title = "Harbour fair", .starts = kNoon + days(20)},
        begun{.title = "Lamp show", .starts = kNoon - 11h},
        released{.title = "Lamp in stores", .starts = kNoon + 2h, .status = "released"},
        birthday{.title = "Pier, 18th anniversary", .starts = kNoon + 1h},
        rumor{.title = "Spring do",
              .starts = kNoon + days(3),
              .window = "March",
              .status = "rumored"},
        britishRumor{.title = "Autumn do", .starts = kNoon + days(3), .status = "rumoured"},
        undated{.title = "Some day"}, over{.title = "Old fair", .starts = kNoon - days(2) - 12h},
        longOver{.title = "Older fair", .starts = kNoon - days(2) - 13h};
    struct Case {
        std::vector<AppleCalendarEvent> events;
        std::vector<std::string> terms;
        const char* text;
    };
    const Case cases[] = {
        {{fair, birthday, released},
         {},
         "Harbour fair 20 | Pier, 18th anniversary 0 | Lamp in stores 0"},
        {{fair, begun}, {}, "Lamp show 0 | Harbour fair 20"},
        {{fair, over, longOver}, {}, "Harbour fair 20 | Old fair -2"},
        {{rumor, britishRumor, undated}, {}, "none | Some day ? | Spring do ? | Autumn do ?"},
        {{fair, birthday}, {"pier"}, "none | Pier, 18th anniversary 0"},
        {{fair}, {"circus"}, "none"},
    };
    for (const auto& [events, terms, text] : cases) {
        const auto content =
            countdown(events, terms, [](Instant then) { return daysBetween(kNoon, then); });
        EXPECT_EQ(textOf(content), text);
    }
}

TEST(CountdownContent, AnAnniversarysTitleSaysHowManyYears) {
    const std::pair<const char*, int> cases[] = {
        {"App Store, 18th anniversary", 18},
        {"Anniversary: 1 year of the Lamp", 1},
        {"The 25-year anniversary of the Lamp 2", 25},
        {"Anniversary of Lamp 5", 0},
        {"Lamp X5 anniversary", 0},
        {"99999999999 years, an anniversary", 0},
        {"anniversary", 0},
    };
    for (const auto& [title, years] : cases) {
        const auto content =
            countdown({{.title = title, .starts = kNoon}}, {}, [](Instant) { return 0; });
        EXPECT_EQ(content.others.at(0).years, years) << title;
    }
}

TEST(QuoteContent, ThePriceIsTheNewestOfAllRanges) {
    const CachedValue<StockQuote> old{StockQuote{}, kNoon}, young{StockQuote{}, kNoon + 1h},
        ageless{StockQuote{}, std::nullopt}, failed{std::nullopt, kNoon + 2h};
    EXPECT_EQ(newestOf({&old, &young, &failed}), &young);
    EXPECT_EQ(newestOf({&failed, &ageless}), &ageless);
    EXPECT_EQ(newestOf({&failed}), nullptr);
}

TEST(QuoteContent, TheServicesTimeAndStateCountWhereItGivesThem) {
    const auto content = quoteContent({.price = 11,
                                       .serverPreviousClose = 10,
                                       .marketState = "PRE",
                                       .asOf = kNoon - 1h,
                                       .stale = true},
                                      kNoon);
    EXPECT_EQ(content.market, "Before hours");
    EXPECT_EQ(content.pricedAt, kNoon - 1h);
    EXPECT_TRUE(content.isOld);
    EXPECT_EQ(content.change, (PriceChange{.amount = 1, .percent = 10}));
    const auto bare = quoteContent({.price = 11, .marketState = "HALTED"}, kNoon);
    EXPECT_EQ(bare.market, "HALTED");
    EXPECT_EQ(bare.pricedAt, kNoon);
    EXPECT_EQ(bare.change, std::nullopt);
}

TEST(QuoteContent, EventsStandOnTheChartFromItsFirstPointToTheEndOfItsLastDay) {
    const std::vector<StockQuote::Point> points{{kNoon - days(3), 1}, {kNoon - days(1), 2}};
    const auto titles = [&](const std::vector<StockQuote::Point>& on) {
        std::vector<AppleCalendarEvent> events;
        for (const double at : {-73.0, -72.0, -30.0, -24.0, -13.0, -11.0, 1.0}) {
            events.push_back({.title = std::to_string(static_cast<int>(at)),
                              .starts = kNoon + std::chrono::hours(static_cast<int>(at))});
        }
        std::string text;
        for (const auto& event : eventsOnChart(on, events, kNoon, daysBetween))
            text += event.title + " ";
        return text;
    };
    EXPECT_EQ(titles(points), "-72 -30 -24 -13 ");
    EXPECT_EQ(titles({points[1], points[0]}), "") << "points out of order";
    EXPECT_EQ(titles({}), "");
}

TEST(BoardContent, AGroupStandsWhereItsFirstShareDoesWithAllOfItsShares) {
    constexpr double inf = std::numeric_limits<double>::infinity();
    const std::vector<BoardQuote> board{
        {.symbol = "TIDE",
         .group = "Glass",
         .price = 10,
         .previousClose = 20,
         .change = 3,
         .changePercent = 4},
        {.symbol = "REEF", .group = "Chips", .price = 10, .change = 1, .changePercent = 11.1},
        {.symbol = "SAND",
         .group = "Glass",
         .price = 10,
         .previousClose = 10,
         .marketState = "POST"},
        {.symbol = "ODD", .group = "Chips", .price = 10, .change = inf, .changePercent = 1}};
    const StockQuote share{.symbol = "AAPL", .price = 11, .serverPreviousClose = 10};
    const auto textOf = [](const std::vector<BoardGroup>& groups) {
        std::string text;
        for (const auto& group : groups) {
            text += group.name + ":";
            for (const auto& row : group.rows) {
                text += " " + row.quote.symbol;
                if (row.change) text += std::to_string(std::lround(row.change->percent));
            }
            text += "\n";
        }
        return text;
    };
    EXPECT_EQ(textOf(boardGroups(board)), "Glass: TIDE-50 SAND0\nChips: REEF11 ODD\n");
    EXPECT_EQ(textOf(boardGroups(board, &share)),
              "Apple: AAPL10\nGlass: TIDE-50 SAND0\nChips: REEF11 ODD\n");
    EXPECT_EQ(boardGroups(board).at(0).rows.at(1).market, "After hours");
    EXPECT_TRUE(boardGroups({}, &share).empty()) << "an empty board stays empty";
}

}  // namespace
}  // namespace kit
