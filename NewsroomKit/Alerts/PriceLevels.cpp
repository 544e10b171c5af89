#include "NewsroomKit/Alerts/PriceLevels.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "NewsroomKit/Alerts/AlertRuleText.h"

namespace kit {

namespace {

constexpr double kStepsOfPrice = 1000;
constexpr double kSmallestPrice = 1e-6;

/// The text without the full stop, as it serves as a name.
std::string nameFromText(const AlertTrigger& trigger) {
    auto text = alertTriggerText(trigger);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

}  // namespace

std::vector<PriceLevel> priceLevels(std::span<const AlertRule> rules, std::string_view symbol) {
    std::vector<PriceLevel> levels;
    for (const auto& rule : rules) {
        const auto* trigger = std::get_if<PriceTrigger>(&rule.trigger);
        if (!trigger || trigger->symbol != symbol || !trigger->condition.price) continue;
        levels.push_back({.rule = rule.id,
                          .name = rule.name,
                          .kind = trigger->condition.kind,
                          .price = *trigger->condition.price,
                          .isOn = rule.on});
    }
    std::ranges::stable_sort(levels, std::greater(), &PriceLevel::price);
    return levels;
}

AlertRule withLevel(AlertRule rule, double price) {
    auto* trigger = std::get_if<PriceTrigger>(&rule.trigger);
    if (!trigger || !trigger->condition.price) return rule;
    const bool namesLevel = rule.name == nameFromText(rule.trigger);
    trigger->condition.price = price;
    if (namesLevel) rule.name = nameFromText(rule.trigger);
    return rule;
}

double levelStep(double price) {
    const double least = std::max(price, kSmallestPrice) / kStepsOfPrice;
    return std::pow(10, std::floor(std::log10(least)));
}

double steppedPrice(double price) {
    if (!std::isfinite(price)) return kSmallestPrice;
    const double step = levelStep(price);
    // By division where steps are fractions: 1 / 10 times 3 is not the number that "0.3" is.
    const double steps = std::max(std::round(price / step), 1.0);
    return step < 1 ? steps / std::round(1 / step) : steps * step;
}

}  // namespace kit
