#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Alerts/AlertRule.h"

namespace kit {

/// A rule on a price as a line across the chart of its symbol.
struct PriceLevel {
    std::string rule{};  ///< its id
    std::string name{};
    PriceCondition::Kind kind{};
    double price = 0;
    bool isOn = false;

    bool operator==(const PriceLevel&) const = default;
};

/// Of the rules on that symbol those that wait for a price, the highest first. Those on a change in
/// per cent or on the year's bounds have no level that could be set.
std::vector<PriceLevel> priceLevels(std::span<const AlertRule> rules, std::string_view symbol);

/// The rule with another level. A name that says the old level says the new one.
AlertRule withLevel(AlertRule rule, double price);

/// The step by which a level near that price is set: a power of ten, about a thousandth of it.
double levelStep(double price);

/// The nearest price in whole steps; never below the smallest one.
double steppedPrice(double price);

}  // namespace kit
