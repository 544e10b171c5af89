#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <QLocale>

#include "Tarnwick_Brell/Models/Charts/QuoteChartData.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using kit::AppleCalendarEvent;
using kit::Instant;
using kit::StockQuote;
using std::chrono::days;

const Instant kStart = kit::parseISO8601("2026-04-20T13:30:00Z").value();
const Instant kNow = kStart + days(60);

/// A point a day.
StockQuote quoteOf(const std::vector<double>& prices, double previousClose = 0) {
    StockQuote quote{.serverPreviousClose = previousClose,
                     .range = previousClose > 0 ? "1d" : "1m"};
    for (const double price : prices) {
        quote.points.push_back({.time = kStart + days(std::ssize(quote.points)), .close = price});
    }
    return quote;
}

bool isShare(double number) { return number >= 0 && number <= 1; }

void expectDrawable(const QuoteChartData& curve, const std::string& what) {
    for (const auto& point : curve.points())
        EXPECT_TRUE(isShare(point.x()) && isShare(point.y())) << what;
    for (const auto& tick : curve.prices()) EXPECT_TRUE(isShare(tick.position)) << what;
    for (const auto& tick : curve.times()) EXPECT_TRUE(isShare(tick.position)) << what;
    for (const auto& mark : curve.marks())
        EXPECT_TRUE(isShare(mark.position) && isShare(mark.level)) << what;
    EXPECT_TRUE(isShare(curve.baseline().value_or(0))) << what;
    if (curve.points().isEmpty()) return;
    EXPECT_GE(curve.prices().size(), 2u) << what;
    EXPECT_LE(curve.prices().size(), 7u) << what;
}

TEST(QuoteChartData, WhateverTheServiceSaysEverythingStandsWithinTheChart) {
    const double inf = std::numeric_limits<double>::infinity();
    struct Case {
        std::string what;
        StockQuote quote;
        qsizetype points;
    };
    std::vector<Case> cases{
        {"nothing", quoteOf({}), 0},
        {"nothing but a previous close", quoteOf({}, 5), 0},
        {"one point", quoteOf({7}), 1},
        {"one point on the previous close", quoteOf({7}, 7), 1},
        {"a flat line", quoteOf({7, 7, 7}), 3},
        {"a flat line but for the last bit", quoteOf({0.1 + 0.2, 0.3, 0.3}), 3},
        {"gaps", quoteOf({0, 7, 0, 9, -1}), 2},
        {"no numbers", quoteOf({NAN, inf, -inf, 7, 8}), 2},
        {"numbers beyond any price", quoteOf({1e300, 1.7e308, 7, 8}, 1e308), 2},
        {"pennies", quoteOf({0.0003, 0.00031}), 2},
        {"least and most", quoteOf({1e-300, 9e11}), 2},
        {"a previous close far away", quoteOf({270, 271}, 2), 2},
    };
    cases.push_back({"times the wrong way round", quoteOf({1, 2, 3}), 3});
    std::ranges::reverse(cases.back().quote.points);
    cases.push_back({"one time for all", quoteOf({1, 2, 3}), 3});
    for (auto& point : cases.back().quote.points) point.time = kStart;
    cases.push_back({"points outside of the session", quoteOf({1, 2, 3}), 3});
    cases.back().quote.range = "1d";
    cases.back().quote.sessionOpen = kStart + 1h;
    cases.back().quote.sessionClose = kStart + 2h;
    const std::vector<AppleCalendarEvent> events{{.title = "Fair", .starts = kStart + 1h},
                                                 {.title = "Sale", .starts = kStart}};
    for (const auto& [what, quote, points] : cases) {
        const QuoteChartData curve(quote, events, kNow);
        EXPECT_EQ(curve.points().size(), points) << what;
        expectDrawable(curve, what);
        for (const auto& point : sparkline(quote.points))
            EXPECT_TRUE(isShare(point.x()) && isShare(point.y())) << what;
    }
}

TEST(QuoteChartData, PricesStandBetweenRoundValues) {
    const auto labels = [](const StockQuote& quote) {
        std::string text;
        const QuoteChartData curve(quote, {}, kNow);
        for (const auto& tick : curve.prices()) text += tick.label.toStdString() + " ";
        return text;
    };
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(labels(quoteOf({261.3, 274.86}, 272.94)), "275 270 265 260 ");
    EXPECT_EQ(labels(quoteOf({260, 275})), "275 270 265 260 ") << "none beyond a price on a tick";
    EXPECT_EQ(labels(quoteOf({270.1, 270.9})), "271.0 270.8 270.6 270.4 270.2 270.0 ");
    EXPECT_EQ(labels(quoteOf({100})), "101.0 100.5 100.0 99.5 99.0 ");
}

TEST(QuoteChartData, ComparedSymbolsStandInPerCentOfTheirFirstPrices) {
    auto tide = quoteOf({50, 75, 100});
    tide.symbol = "TIDE";
    const QuoteChartData curve(quoteOf({10, 12, 9}), {}, kNow, {.compared = {tide, quoteOf({})}});
    ASSERT_EQ(curve.lines().size(), 2u);
    EXPECT_EQ(curve.lines()[0].change, "+100.00%");
    EXPECT_EQ(curve.lines()[1].change, "") << "its prices have not come";
    EXPECT_EQ(curve.change(), "\u221210.00%");
    EXPECT_EQ(curve.reading(1).change, "+20.00%");
    EXPECT_EQ(curve.points()[0].y(), curve.baseline().value());
    EXPECT_EQ(curve.lines()[0].line[0].y(), curve.baseline().value());
    EXPECT_EQ(curve.prices().back().label, "\u221250%");
    EXPECT_EQ(
        QuoteChartData(quoteOf({10, 10}), {}, kNow, {.compared = {quoteOf({})}}).points()[1].y(),
        0.5);
}

TEST(QuoteChartData, ReadsTheNearestPointUpToBothEnds) {
    const QuoteChartData curve(quoteOf({1, 2, 3}), {}, kNow);
    const std::vector<std::pair<double, int>> cases{{-9, 0},  {0, 0}, {0.2, 0}, {0.3, 1}, {0.7, 1},
                                                    {0.8, 2}, {1, 2}, {9, 2},   {NAN, -1}};
    for (const auto& [position, point] : cases)
        EXPECT_EQ(curve.nearest(position), point) << position;
    EXPECT_EQ(curve.reading(-5), curve.reading(0));
    EXPECT_EQ(curve.reading(99), curve.reading(2));
    EXPECT_EQ(curve.reading(2).position, 1);
    EXPECT_EQ(QuoteChartData(quoteOf({}), {}, kNow).nearest(0.5), -1);
    EXPECT_EQ(QuoteChartData().reading(0), ChartReading());
}

kit::MoveRow moveOf(const char* letter, Instant point, double change) {
    return {.letter = letter, .move = {.change = change, .point = point}};
}

TEST(QuoteChartData, MarksOfAPointAreOneMarkOnTheCurve) {
    const auto event = [](const char* title, Instant starts) {
        return AppleCalendarEvent{.title = title, .starts = starts};
    };
    const auto quote = quoteOf({10, 20, 30, 20, 20});
    const QuoteChartData curve(
        quote,
        {event("before", kStart - 1h), event("that evening", kStart + 3h),
         event("on a point", kStart + days(2)), event("later that day", kStart + days(2) + 2h),
         event("after", kStart + days(6)), event("to come", kNow + 1h)},
        kNow, {.moves = {moveOf("B", kStart + days(3), -33.3), moveOf("A", kStart + days(2), 50)}});
    ASSERT_EQ(curve.marks().size(), 3u);
    EXPECT_EQ(curve.marks()[0].position, 0);
    EXPECT_EQ(curve.marks()[0].letter, "");
    const auto& both = curve.marks()[1];
    EXPECT_EQ(both.level, curve.points()[2].y());
    EXPECT_EQ(both.letter, "A");
    EXPECT_TRUE(both.rises);
    EXPECT_EQ(both.spokenText, "on a point, later that day. +50.00%: no reported reason");
    EXPECT_EQ(curve.reading(2).event, both.spokenText);
    EXPECT_FALSE(curve.marks()[2].rises);
    EXPECT_EQ(curve.marks()[2].events, "");
}

TEST(QuoteChartData, LevelsNearTheCurveWidenTheScaleAndOthersStandAtItsEdge) {
    const auto quote = quoteOf({100, 110, 104});
    const auto level = [](const char* rule, double price) {
        return kit::PriceLevel{.rule = rule, .price = price, .isOn = true};
    };
    for (const bool isCompared : {false, true}) {
        ChartAdditions additions{.levels = {level("far", 300), level("near", 114)}};
        if (isCompared) additions.compared = {quoteOf({50, 51, 52})};
        const QuoteChartData curve(quote, {}, kNow, additions);
        ASSERT_EQ(curve.levels().size(), 2u);
        EXPECT_EQ(curve.levels()[0].side, 1) << isCompared;
        EXPECT_EQ(curve.levels()[0].position, 0) << isCompared;
        EXPECT_EQ(curve.levels()[1].side, 0) << isCompared;
        const double near = curve.levels()[1].position;
        EXPECT_LT(near, curve.points()[1].y()) << isCompared;
        EXPECT_NEAR(curve.priceAt(near), 114, 1e-9) << isCompared;
        EXPECT_NEAR(curve.positionOf(curve.priceAt(0.5)), 0.5, 0.01) << isCompared;
        EXPECT_EQ(curve.priceAt(-3), curve.priceAt(0)) << "a pointer beyond the chart";
    }
    EXPECT_EQ(QuoteChartData(quoteOf({}), {}, kNow, {.levels = {level("far", 3)}}).levels().size(),
              0u);
}

TEST(QuoteChartData, ADaysCurveEndsWhereTheDayHasGotTo) {
    StockQuote quote{.sessionOpen = kStart, .sessionClose = kStart + 6h, .range = "1d"};
    for (int i = 0; i < 4; ++i)
        quote.points.push_back({.time = kStart + i * 1h, .close = 10.0 + i});
    const QuoteChartData curve(quote, {}, kNow);
    EXPECT_EQ(curve.points().back().x(), 0.5);
    ASSERT_GE(curve.times().size(), 2u);
    EXPECT_GT(curve.times().back().position, 0.5) << "the axis goes on";
}

}  // namespace
}  // namespace app
