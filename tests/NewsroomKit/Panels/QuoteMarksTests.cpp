#include "NewsroomKit/Panels/QuoteMarks.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kit {
namespace {

Instant at(const char* text) { return parseISO8601(text).value(); }

/// The days of trading from Thursday, 12 to Tuesday, 17 November 2026.
StockQuote quoteOfDays(const char* clock, const char* symbol = "AAPL") {
    StockQuote quote{.symbol = symbol, .range = "1m"};
    for (const std::string day : {"12", "13", "16", "17"})
        quote.points.push_back({at(("2026-11-" + day + clock).c_str()), 100});
    return quote;
}

StockQuote quoteOfHours() {
    StockQuote quote{.symbol = "AAPL", .range = "1w"};
    for (const std::string day : {"13", "16"}) {
        for (const std::string clock : {"14:30", "17:30", "20:30"})
            quote.points.push_back({at(("2026-11-" + day + "T" + clock + ":00Z").c_str()), 100});
    }
    return quote;
}

/// "0:b,c 2:a+1": the marked points with the titles of their events and the place of their move.
std::string marksOf(const StockQuote& quote,
                    const std::vector<std::pair<const char*, const char*>>& happened,
                    const std::vector<const char*>& moved = {}) {
    std::vector<AppleCalendarEvent> events;
    for (const auto& [title, starts] : happened)
        events.push_back({.title = title, .starts = at(starts)});
    std::vector<MoveRow> moves;
    for (const auto* point : moved) moves.push_back({.move = {.point = at(point)}});
    std::string text;
    for (const auto& mark : quoteMarks(quote, events, moves)) {
        text += (text.empty() ? "" : " ") + std::to_string(mark.point) + ":";
        for (const auto& event : mark.events)
            text += (&event == &mark.events.front() ? "" : ",") + event.title;
        if (mark.move) text += "+" + std::to_string(*mark.move);
    }
    return text;
}

TEST(QuoteMarks, AnEventStandsAtItsDayOrTheNextOneOfTrading) {
    for (const auto* clock : {"T14:30:00Z", "T00:00:00Z"}) {
        const auto quote = quoteOfDays(clock);
        EXPECT_EQ(marksOf(quote, {{"morning", "2026-11-13T12:00:00Z"}}), "1:morning") << clock;
        EXPECT_EQ(marksOf(quote, {{"evening", "2026-11-13T22:00:00Z"}}), "1:evening") << clock;
        EXPECT_EQ(marksOf(quote, {{"night there", "2026-11-14T03:00:00Z"}}), "1:night there")
            << clock << ": the calendar is that of the exchange";
        EXPECT_EQ(marksOf(quote, {{"Saturday", "2026-11-14T18:00:00Z"}}), "2:Saturday") << clock;
        EXPECT_EQ(marksOf(quote, {{"today", "2026-11-17T23:00:00Z"}}), "3:today") << clock;
        EXPECT_EQ(marksOf(quote, {{"since", "2026-11-18T18:00:00Z"}}), "3:since") << clock;
    }
    EXPECT_EQ(
        marksOf(quoteOfDays("T01:00:00Z", "2317.TW"), {{"night there", "2026-11-12T18:00:00Z"}}),
        "1:night there");
}

TEST(QuoteMarks, WithinDaysAnEventStandsAtTheFirstPriceAfterIt) {
    const auto quote = quoteOfHours();
    EXPECT_EQ(marksOf(quote, {{"noon", "2026-11-13T16:00:00Z"}}), "1:noon");
    EXPECT_EQ(marksOf(quote, {{"after the close", "2026-11-13T21:30:00Z"},
                              {"Sunday", "2026-11-15T18:00:00Z"}}),
              "3:after the close,Sunday");
}

TEST(QuoteMarks, WhatHappenedOnOneDayIsOneMarkInTheOrderOfTime) {
    const auto quote = quoteOfDays("T14:30:00Z");
    EXPECT_EQ(marksOf(quote,
                      {{"sale", "2026-11-16T20:00:00Z"},
                       {"fair", "2026-11-15T18:00:00Z"},
                       {"call", "2026-11-12T22:00:00Z"}},
                      {"2026-11-17T14:30:00Z", "2026-11-16T00:00:00Z"}),
              "0:call 2:fair,sale+1 3:+0");
}

TEST(QuoteMarks, AMoveStandsAtTheLastPriceOfItsDayAndNowhereElse) {
    EXPECT_EQ(marksOf(quoteOfHours(), {}, {"2026-11-13T14:30:00Z"}), "2:+0");
    EXPECT_EQ(marksOf(quoteOfHours(), {}, {"2026-11-12T14:30:00Z"}), "") << "before the chart";
    auto backwards = quoteOfDays("T14:30:00Z");
    std::ranges::reverse(backwards.points);
    EXPECT_EQ(marksOf(backwards, {{"fair", "2026-11-13T18:00:00Z"}}, {"2026-11-13T14:30:00Z"}), "");
    EXPECT_EQ(marksOf({}, {{"fair", "2026-11-13T18:00:00Z"}}), "");
}

}  // namespace
}  // namespace kit
