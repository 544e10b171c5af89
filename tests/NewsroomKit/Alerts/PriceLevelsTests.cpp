#include "NewsroomKit/Alerts/PriceLevels.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kit {
namespace {

using Kind = PriceCondition::Kind;

AlertRule ruleOn(const char* symbol, PriceCondition condition, const char* name = "Mine") {
    return {.id = name,
            .name = name,
            .trigger = PriceTrigger{.symbol = symbol, .condition = std::move(condition)}};
}

TEST(PriceLevels, AreThoseOfRulesThatWaitForAPriceOfTheSymbolTheHighestFirst) {
    auto low = ruleOn("AAPL", {.kind = Kind::below, .price = 291}, "low");
    low.on = false;
    const std::vector<AlertRule> rules{
        low,
        ruleOn("AAPL", {.kind = Kind::dayMove, .percent = 2}, "day"),
        ruleOn("AAPL", {.kind = Kind::yearHigh}, "year"),
        ruleOn("TSM", {.kind = Kind::above, .price = 260}, "other"),
        ruleOn("AAPL", {.kind = Kind::above, .price = 330}, "high"),
        {.id = "stories", .name = "stories", .trigger = StoriesTrigger{}}};
    const auto levels = priceLevels(rules, "AAPL");
    ASSERT_EQ(levels.size(), 2u);
    EXPECT_EQ(levels[0].rule, "high");
    EXPECT_EQ(levels[1].price, 291);
    EXPECT_FALSE(levels[1].isOn);
}

TEST(PriceLevels, ANameThatSaysTheLevelFollowsItAndAnotherStays) {
    const PriceCondition condition{.kind = Kind::below, .price = 291};
    const auto changed = withLevel(ruleOn("AAPL", condition, "AAPL falls below 291.00"), 288.5);
    EXPECT_EQ(changed.name, "AAPL falls below 288.50");
    EXPECT_EQ(std::get<PriceTrigger>(changed.trigger).condition.price, 288.5);
    EXPECT_EQ(withLevel(ruleOn("AAPL", condition, "Buy more"), 288.5).name, "Buy more");
    const auto percent = ruleOn("AAPL", {.kind = Kind::gap, .percent = 2});
    EXPECT_EQ(withLevel(percent, 5), percent);
}

TEST(PriceLevels, AreSetInRoundStepsOfAboutAThousandthOfThePrice) {
    const std::vector<std::pair<double, double>> cases{{314.3712, 314.4},
                                                       {88213, 88210},
                                                       {3.14159, 3.142},
                                                       {1000.4, 1000},
                                                       {0.000123456, 0.0001235}};
    for (const auto& [typed, stepped] : cases) EXPECT_DOUBLE_EQ(steppedPrice(typed), stepped);
    EXPECT_GT(steppedPrice(0), 0);
    EXPECT_GT(steppedPrice(-5), 0) << "no rule waits for such a price";
    EXPECT_GT(steppedPrice(314.4 - levelStep(314.4)), 314.2);
}

}  // namespace
}  // namespace kit
