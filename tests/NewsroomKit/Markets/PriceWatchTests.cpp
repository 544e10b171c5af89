#include "NewsroomKit/Markets/PriceWatch.h"

#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "tests/NewsroomKit/Markets/SampleQuotes.h"

namespace kit {
namespace {

using samples::kOpening;
using samples::Quoted;
using namespace std::chrono_literals;

PriceCondition condition(std::string_view text) { return decode<PriceCondition>(parseJSON(text)); }

const PriceCondition kAbove300 = condition(R"({"kind":"above","price":300})");
const PriceCondition kBelow300 = condition(R"({"kind":"below","price":300})");
const PriceCondition kDay3 = condition(R"({"kind":"dayMove","percent":3})");
const PriceCondition kMove2 = condition(R"({"kind":"move","percent":2,"minutes":30})");
const PriceCondition kYearHigh = condition(R"({"kind":"yearHigh"})");
const PriceCondition kYearLow = condition(R"({"kind":"yearLow"})");
const PriceCondition kGap3 = condition(R"({"kind":"gap","percent":3})");

struct WatchCase {
    std::string name{};
    PriceCondition condition{};
    std::vector<Quoted> quotes{};
    /// Firings and faults by the index of their quote, then the status: "1 up, 2 stale; waiting".
    std::string expected{};
    std::optional<double> baseline{};
};

std::string told(const QuoteOutcome& outcome, std::size_t index) {
    std::string text;
    if (outcome.firing) {
        const auto direction = outcome.firing->direction;
        text += fmt::format("{} {}, ", index, direction ? rawValue(*direction) : "fired");
    }
    if (outcome.confirmsJump) text += fmt::format("{} confirms, ", index);
    if (outcome.fault) text += fmt::format("{} {}, ", index, rawValue(*outcome.fault));
    return text;
}

/// With `storing`, the state goes through its text after each quote.
std::string told(const WatchCase& given, bool storing) {
    PriceWatch watch("AAPL", given.condition, given.baseline);
    std::string text;
    for (std::size_t i = 0; i < given.quotes.size(); ++i) {
        if (storing) {
            const auto form = json::serialize(encode(watch.state()));
            watch = PriceWatch("AAPL", given.condition, decode<PriceState>(parseJSON(form)));
        }
        text += told(watch.see(given.quotes[i].quote, given.quotes[i].seenAt), i);
    }
    if (text.size() > 2) text.replace(text.size() - 2, 2, "; ");
    return text + std::string(rawValue(watch.state().status));
}

void expectTold(const std::vector<WatchCase>& cases) {
    for (const auto& each : cases) {
        EXPECT_EQ(told(each, false), each.expected) << each.name;
        EXPECT_EQ(told(each, true), each.expected) << each.name << ", stored after each quote";
    }
}

TEST(PricesAtAThreshold, FireWhenTheyCrossItOrReachItExactly) {
    expectTold({
        {"no quote", kAbove300, {}, "noQuote"},
        {"no quote but a baseline", kAbove300, {}, "noQuote", 299},
        {"reached exactly", kAbove300, {{299, 1min}, {300, 2min}}, "1 fired; waiting"},
        {"from the baseline", kAbove300, {{301, 1min}}, "0 fired; waiting", 299},
        {"the first quote alone", kAbove300, {{301, 1min}}, "waiting"},
        {"the baseline holds already", kAbove300, {{302, 1min}}, "waiting", 301},
        {"the same price twice", kAbove300, {{299, 1min}, {299, 2min}}, "armed"},
        {"fallen to it", kBelow300, {{301, 1min}, {300, 2min}}, "1 fired; waiting"},
        {"held below at the start", kBelow300, {{300, 1min}, {299, 2min}}, "waiting"},
    });
}

TEST(PricesAtAThreshold, FireAgainOnlyAfterHalfAPercentBackOrInTheNextSession) {
    expectTold({
        {"not far enough back",
         kAbove300,
         {{299, 1min}, {301, 2min}, {298.51, 3min}, {302, 4min}},
         "1 fired; waiting"},
        {"just far enough back",
         kAbove300,
         {{299, 1min}, {301, 2min}, {298.5, 3min}, {302, 4min}},
         "1 fired, 3 fired; waiting"},
        {"far enough, not yet up again",
         kAbove300,
         {{299, 1min}, {301, 2min}, {298.5, 3min}},
         "1 fired; armed"},
        {"the other way round",
         kBelow300,
         {{299, 1min}, {301.49, 2min}, {299, 3min}, {301.5, 4min}, {300, 5min}},
         "4 fired; waiting"},
        {"armed by the next session, crossed between the two",
         kAbove300,
         {{299, 1min}, {301, 2min}, {299.9, 3min}, {301, 0min, 1}},
         "1 fired, 3 fired; waiting"},
        {"armed by the next session, but already above",
         kAbove300,
         {{299, 1min}, {301, 2min}, {302, 0min, 1}},
         "1 fired; armed"},
        {"another opening on the same day is another session",
         kAbove300,
         {{299, 1min},
          {301, 2min},
          {299.5, 3min},
          Quoted(301, 60min).with(&StockQuote::sessionOpen, kOpening + 30min)},
         "1 fired, 3 fired; waiting"},
    });
}

TEST(PricesWithoutASession, ChangeItWithTheDayInNewYork) {
    const auto bare = [](double price, std::chrono::minutes at) {
        return Quoted(price, at).with(&StockQuote::sessionOpen, std::optional<Instant>());
    };
    // 870 minutes after half past nine it is midnight in New York.
    expectTold({
        {"before midnight",
         kAbove300,
         {bare(299, 1min), bare(301, 2min), bare(299.5, 3min), bare(301, 869min)},
         "1 fired; waiting"},
        {"after midnight",
         kAbove300,
         {bare(299, 1min), bare(301, 2min), bare(299.5, 3min), bare(301, 870min)},
         "1 fired, 3 fired; waiting"},
    });
}

TEST(MovesOfADay, FireOnceASessionAndDirection) {
    expectTold({
        {"both ways",
         kDay3,
         {Quoted(100, 1min).from(100), Quoted(103, 2min).from(100), Quoted(97, 3min).from(100)},
         "1 up, 2 down; waiting"},
        {"up, back and up again",
         kDay3,
         {Quoted(100, 1min).from(100), Quoted(103, 2min).from(100), Quoted(102, 3min).from(100),
          Quoted(104, 4min).from(100)},
         "1 up; armed"},
        {"each session anew",
         kDay3,
         {Quoted(100, 1min).from(100), Quoted(103, 2min).from(100), Quoted(107, 1min, 1).from(103)},
         "1 up, 2 up; waiting"},
        {"held at the start, then gone back",
         kDay3,
         {Quoted(104, 1min).from(100), Quoted(102.6, 2min).from(100), Quoted(104, 3min).from(100),
          Quoted(102.5, 4min).from(100), Quoted(103, 5min).from(100)},
         "4 up; waiting"},
        {"held at a baseline of its own", kDay3, {Quoted(104, 1min).from(100)}, "waiting", 104},
        {"two per cent of 50.10 is not representable",
         condition(R"({"kind":"dayMove","percent":2})"),
         {Quoted(50.10, 1min).from(50.10), Quoted(51.102, 2min).from(50.10)},
         "1 up; waiting"},
        {"after hours too",
         kDay3,
         {Quoted(100, 1min).from(100), Quoted(103, 400min).from(100).state("POST")},
         "1 up; waiting"},
        {"without a previous close", kDay3, {{100, 1min}, {110, 2min}}, "noReference"},
        {"a previous close of zero",
         kDay3,
         {Quoted(100, 1min).from(0), Quoted(110, 2min).from(0)},
         "noReference"},
        {"the previous close comes later, the baseline held already",
         kDay3,
         {{104, 1min}, Quoted(104.5, 2min).from(100)},
         "waiting"},
    });
}

TEST(MovesWithinMinutes, CompareWithTheOldestPriceOfTheMinutes) {
    expectTold({
        {"thirty minutes ago counts", kMove2, {{100, 0min}, {102, 30min}}, "1 up; waiting"},
        {"thirty-one do not", kMove2, {{100, 0min}, {102, 31min}}, "armed"},
        {"the oldest, not the lowest", kMove2, {{100, 0min}, {99, 10min}, {101.5, 20min}}, "armed"},
        {"once more after it has gone back",
         kMove2,
         {{100, 0min}, {102, 5min}, {101, 10min}, {102.5, 15min}},
         "1 up, 3 up; waiting"},
        {"not without going back",
         kMove2,
         {{100, 0min}, {102, 5min}, {101.6, 10min}, {102.5, 15min}},
         "1 up; waiting"},
        {"not over the night", kMove2, {{100, 380min}, {103, 0min, 1}}, "armed"},
        {"only while the market is open",
         kMove2,
         {{100, 380min}, Quoted(103, 391min).state("POST")},
         "armed"},
        {"a correction replaces the price of its time",
         kMove2,
         {{103, 1min}, {100, 1min}, {102, 5min}},
         "2 up; waiting"},
    });
}

TEST(ExtremesOfTheYear, AreThoseOfTheLastClose) {
    const auto yesterday = Quoted(305, 380min).high(306, 310);
    expectTold({
        {"equal is not passed",
         kYearHigh,
         {yesterday, Quoted(310, 1min, 1).high(310, 310)},
         "armed"},
        {"passed, once a session",
         kYearHigh,
         {yesterday, Quoted(311, 1min, 1).high(311, 311), Quoted(308, 2min, 1).high(311, 311),
          Quoted(312, 3min, 1).high(312, 312)},
         "1 fired; armed"},
        {"back by half a per cent arms, but the session is used up",
         kYearHigh,
         {yesterday, Quoted(311, 1min, 1).high(311, 311), Quoted(308, 2min, 1).high(311, 311)},
         "1 fired; armed"},
        {"seen first within a session that has no new high",
         kYearHigh,
         {Quoted(305, 1min).high(306, 310), Quoted(311, 2min).high(311, 311)},
         "1 fired; waiting"},
        {"seen first within a session that has one",
         kYearHigh,
         {Quoted(312, 1min).high(312, 312), Quoted(313, 2min).high(313, 313)},
         "noReference"},
        {"known after that session",
         kYearHigh,
         {Quoted(312, 1min).high(312, 312), Quoted(313, 1min, 1).high(313, 313)},
         "1 fired; waiting"},
        {"a new low",
         kYearLow,
         {Quoted(205, 1min).low(204, 200), Quoted(199, 2min).low(199, 199)},
         "1 fired; waiting"},
        {"no figures of the year", kYearHigh, {{305, 1min}, {306, 1min, 1}}, "noReference"},
    });
}

TEST(Gaps, AreJudgedByTheFirstOpenPriceOfASession) {
    const auto yesterday = Quoted(100, 380min).from(99);
    expectTold({
        {"at the opening", kGap3, {yesterday, Quoted(103, 0min, 1).from(100)}, "1 up; waiting"},
        {"half an hour later",
         kGap3,
         {yesterday, Quoted(97, 30min, 1).from(100)},
         "1 down; waiting"},
        {"the desk slept", kGap3, {yesterday, Quoted(103, 31min, 1).from(100)}, "armed"},
        {"the second price is too late",
         kGap3,
         {yesterday, Quoted(101, 0min, 1).from(100), Quoted(104, 5min, 1).from(100)},
         "armed"},
        {"not before the market is open",
         kGap3,
         {yesterday, Quoted(104, 0min, 1).from(100).state("PRE"), Quoted(104.5, 1min, 1).from(100)},
         "2 up; waiting"},
        {"the rule was made in this session",
         kGap3,
         {Quoted(100, 0min).from(100), Quoted(104, 1min).from(100)},
         "armed"},
        {"made in this session, while the service calls it closed",
         kGap3,
         {Quoted(100, 1min).from(100).state("CLOSED"), Quoted(104, 5min).from(100)},
         "armed"},
        {"no previous close", kGap3, {yesterday, {104, 0min, 1}}, "noReference"},
    });
}

TEST(QuotesFromBeforeTheirSession, CountForTheSessionBefore) {
    const auto early = [](double price) { return Quoted(price, -30min, 1).from(100).state("PRE"); };
    expectTold({
        {"thresholds see them",
         condition(R"({"kind":"above","price":103})"),
         {Quoted(102, 380min), early(103)},
         "1 fired; waiting"},
        {"and are not armed by them",
         condition(R"({"kind":"above","price":103})"),
         {Quoted(102, 300min), Quoted(103, 301min), Quoted(102.9, 302min), early(103)},
         "1 fired; waiting"},
        {"moves do not", kDay3, {Quoted(100, 380min).from(100), early(104)}, "armed"},
        {"the session itself does",
         kDay3,
         {Quoted(100, 380min).from(100), early(104), Quoted(104, 1min, 1).from(100)},
         "2 up; waiting"},
    });
}

TEST(UnusableQuotes, NeverFireAndSayWhy) {
    const auto start = Quoted(299, 1min);
    const auto fine = Quoted(301, 2min);
    const auto infinite = std::numeric_limits<double>::infinity();
    expectTold({
        {"not finite", kAbove300, {start, Quoted(infinite, 2min)}, "1 unreadable; armed"},
        {"a close that is not finite",
         kAbove300,
         {start, fine.from(infinite)},
         "1 unreadable; armed"},
        {"of another symbol",
         kAbove300,
         {start, fine.with(&StockQuote::symbol, std::string("MSFT"))},
         "1 symbol; armed"},
        {"stale", kAbove300, {start, fine.with(&StockQuote::stale, true)}, "1 stale; armed"},
        {"zero", kBelow300, {fine, {0, 3min}}, "1 notPositive; armed"},
        {"negative", kBelow300, {fine, {-5, 3min}}, "1 notPositive; armed"},
        {"five minutes ahead is a clock",
         kAbove300,
         {start, fine.seen(*fine.quote.asOf - 5min)},
         "1 fired; waiting"},
        {"more is the future",
         kAbove300,
         {start, fine.seen(*fine.quote.asOf - 5min - 1s)},
         "1 future; armed"},
        {"the desk's clock was set back",
         kAbove300,
         {start, fine.seen(kOpening - 24h)},
         "1 future; armed"},
        {"earlier than the last", kAbove300, {start, {301, 0min}}, "1 outOfOrder; armed"},
        {"the same once more", kAbove300, {start, start, fine}, "2 fired; waiting"},
        {"corrected", kAbove300, {start, {301, 1min}}, "1 fired; waiting"},
        {"in another currency",
         kAbove300,
         {start, fine.with(&StockQuote::currency, std::string("EUR"))},
         "1 currency; armed"},
        {"several faults: the first in order",
         kAbove300,
         {start, Quoted(-1, 2min).with(&StockQuote::stale, true)},
         "1 stale; armed"},
        {"without any time, by the desk's clock",
         kAbove300,
         {start, fine.with(&StockQuote::asOf, std::optional<Instant>()).seen(kOpening)},
         "1 outOfOrder; armed"},
    });
}

TEST(Jumps, CountOnlyWhenALaterQuoteConfirmsThem) {
    const PriceCondition below = condition(R"({"kind":"below","price":250})");
    const auto polledAgain = Quoted(150, 2min);
    expectTold({
        {"twenty per cent are none", below, {{300, 1min}, {240, 2min}}, "1 fired; waiting"},
        {"one alone", below, {{300, 1min}, {239, 2min}}, "1 unconfirmed; armed"},
        {"and back again", below, {{300, 1min}, {150, 2min}, {299, 3min}}, "1 unconfirmed; armed"},
        {"confirmed",
         below,
         {{300, 1min}, {150, 2min}, {155, 3min}},
         "1 unconfirmed, 2 fired, 2 confirms; waiting"},
        {"the same quote polled again",
         below,
         {{300, 1min}, polledAgain, polledAgain, {299, 3min}},
         "1 unconfirmed; armed"},
        {"down, then up",
         below,
         {{300, 1min}, {150, 2min}, {500, 3min}},
         "1 unconfirmed, 2 unconfirmed; armed"},
        {"from a baseline", below, {{100, 2min}}, "0 unconfirmed; noQuote", 300},
    });
}

TEST(Splits, MakeANewBaselineAndFireNothing) {
    const PriceCondition below = condition(R"({"kind":"below","price":250})");
    const auto split = Quoted(75, 2min).with(&StockQuote::yearHigh, 80.0);
    expectTold({
        {"four for one", below, {{300, 1min}, split}, "waiting"},
        {"the other way",
         kAbove300,
         {{100, 1min}, Quoted(1000, 2min).with(&StockQuote::yearLow, 800.0)},
         "waiting"},
        {"and the old year means nothing any more",
         kYearLow,
         {Quoted(300, 380min).low(299, 290), Quoted(75, 1min, 1).low(74, 70).high(76, 80),
          Quoted(69, 2min, 1).low(69, 69).high(76, 80)},
         "2 fired; waiting"},
        {"a year around both is no new scale",
         below,
         {{300, 1min}, Quoted(75, 2min).with(&StockQuote::yearHigh, 310.0)},
         "1 unconfirmed; armed"},
    });
    PriceWatch watch("AAPL", below, std::nullopt);
    watch.see(Quoted(300, 1min).quote, kOpening + 1min);
    watch.see(split.quote, kOpening + 2min);
    EXPECT_EQ(watch.state().baseline, 75);
}

TEST(PriceSentences, AreOnePlainLine) {
    const std::pair<PriceCondition, Quoted> cases[] = {
        {kAbove300, {301.2, 2min}},
        {kDay3, Quoted(310, 2min).from(299)},
        {kMove2, {310, 2min}},
        {kYearHigh, Quoted(310, 2min).high(310, 310)},
    };
    const std::string_view expected[] = {
        "AAPL rose to 301.20, above 300.00.",
        "AAPL is up 3.7 % today, at 310.00.",
        "AAPL rose 3.7 % within 30 minutes, to 310.00.",
        "AAPL passed its high of the year, 305.00, and is at 310.00.",
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        PriceWatch watch("AAPL", cases[i].first, std::nullopt);
        watch.see(Quoted(299, 1min).from(299).high(300, 305).quote, kOpening + 1min);
        const auto outcome = watch.see(cases[i].second.quote, cases[i].second.seenAt);
        ASSERT_TRUE(outcome.firing) << i;
        EXPECT_EQ(outcome.firing->sentence, expected[i]);
    }
}

TEST(PriceWatches, AnswerTheSameWhenTheirStateIsStoredInBetween) {
    std::mt19937 random(20261103);
    const auto pick = [&](int least, int most) {
        return std::uniform_int_distribution(least, most)(random);
    };
    for (const auto& each : {kAbove300, kBelow300, kDay3, kMove2, kYearHigh, kYearLow, kGap3}) {
        WatchCase walk{.name = std::string(rawValue(each.kind)), .condition = each};
        double price = 300;
        for (int i = 0; i < 400; ++i) {
            price = std::max(1.0, price * (1 + pick(-20, 20) / 1000.0));
            auto quote = Quoted(price, i % 80 * 5min, i / 80).from(300 + pick(-9, 9));
            quote = quote.high(price + pick(0, 2), 310 + pick(-1, 3));
            quote = quote.low(price - pick(0, 2), 290 + pick(-3, 1));
            if (pick(0, 9) == 0) quote.quote.price *= 1.5;
            if (pick(0, 9) == 0) quote.quote.stale = true;
            if (pick(0, 9) == 0) quote = quote.state("POST");
            walk.quotes.push_back(quote);
        }
        const auto expected = told(walk, false);
        EXPECT_EQ(told(walk, true), expected) << walk.name;
        EXPECT_GT(std::ranges::count(expected, ','), 5) << walk.name << ": too little happens";
    }
}

}  // namespace
}  // namespace kit
