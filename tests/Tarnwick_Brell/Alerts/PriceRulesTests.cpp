#include "Tarnwick_Brell/Alerts/PriceRules.h"

#include <gtest/gtest.h>

namespace app {
namespace {

using kit::AlertRule;
using kit::PriceCondition;

kit::Instant minute(int number) { return kit::Instant(std::chrono::minutes(29'000'000 + number)); }

AlertRule above(const char* id, const char* symbol, double price, bool on = true) {
    AlertRule rule{.id = id, .name = id, .on = on};
    rule.trigger = kit::PriceTrigger{
        .symbol = symbol, .condition = {.kind = PriceCondition::Kind::above, .price = price}};
    return rule;
}

/// The rules that fire when that price comes.
std::string see(PriceRules& rules, const char* symbol, double price, int at) {
    const kit::StockQuote quote{.symbol = symbol,
                                .currency = "USD",
                                .price = price,
                                .marketState = "OPEN",
                                .sessionOpen = minute(-30),
                                .asOf = minute(at)};
    std::string fired;
    for (const auto& one : rules.see(quote, minute(at))) fired += one.rule.id + " ";
    return fired;
}

TEST(RulesOnPrices, WatchTheSymbolsOfThoseThatAreOn) {
    PriceRules rules;
    AlertRule stories{.id = "s"};
    rules.setRules({above("a", "AAPL", 300), above("b", "AAPL", 310), above("c", "TSM", 200),
                    above("d", "QRVO", 80, false), stories});
    EXPECT_EQ(rules.symbols(), (std::vector<std::string>{"AAPL", "TSM"}));
    EXPECT_EQ(see(rules, "AAPL", 299, 0), "");
    EXPECT_EQ(see(rules, "AAPL", 311, 1), "a b ");
    EXPECT_EQ(see(rules, "QRVO", 79, 0), "");
    EXPECT_EQ(see(rules, "QRVO", 81, 1), "") << "it is off";
}

TEST(RulesOnPrices, GoOnAfterARestart) {
    PriceRules before;
    before.setRules({above("a", "AAPL", 300)});
    see(before, "AAPL", 299, 0);
    PriceRules after;
    after.restore(before.state());
    after.setRules({above("a", "AAPL", 300)});
    EXPECT_EQ(see(after, "AAPL", 301, 1), "a ");
    PriceRules again;
    again.restore(after.state());
    again.setRules({above("a", "AAPL", 300)});
    EXPECT_EQ(see(again, "AAPL", 302, 2), "") << "it has not gone back since";
}

TEST(RulesOnPrices, BeginAnewWhenTheirConditionOrSwitchChanges) {
    PriceRules rules;
    rules.setRules({above("a", "AAPL", 300)});
    see(rules, "AAPL", 299, 0);
    rules.setRules({above("a", "AAPL", 298)});
    EXPECT_EQ(see(rules, "AAPL", 301, 1), "") << "the first price is the baseline";
    rules.setRules({above("a", "AAPL", 298, false)});
    see(rules, "AAPL", 290, 2);
    rules.setRules({above("a", "AAPL", 298)});
    EXPECT_EQ(see(rules, "AAPL", 299, 3), "") << "what it missed is no crossing";
    PriceRules other;
    other.restore("{\"a\": 3, \"b\": {}}");
    other.restore("nonsense");
    other.setRules({above("a", "AAPL", 300)});
    EXPECT_EQ(see(other, "AAPL", 299, 4), "");
    EXPECT_EQ(see(other, "AAPL", 300, 5), "a ");
}

}  // namespace
}  // namespace app
