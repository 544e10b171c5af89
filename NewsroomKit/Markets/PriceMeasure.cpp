#include "NewsroomKit/Markets/PriceMeasure.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "NewsroomKit/Trackers/Market/PriceChange.h"

namespace kit {

namespace {

using ConditionKind = PriceCondition::Kind;

/// Percentages of prices such as 50.10 are a little off in binary numbers.
constexpr double kTolerance = 1e-9;
/// How far a price goes back, in per cent, before the same can be told of it again.
constexpr double kWayBack = 0.5;

double inDirection(double number, PriceDirection direction) {
    return direction == PriceDirection::up ? number : -number;
}

bool isOfYear(ConditionKind kind) {
    return kind == ConditionKind::yearHigh || kind == ConditionKind::yearLow;
}

std::string priceFigure(double price) {
    if (price < 1) return fmt::format("{:.4f}", price);
    return price < 1e12 ? fmt::format("{:.2f}", price) : fmt::format("{:.4g}", price);
}

std::string percentFigure(double percent) {
    percent = std::abs(percent);
    return percent < 1e6 ? fmt::format("{:.1f} %", percent) : fmt::format("{:.2g} %", percent);
}

}  // namespace

std::vector<PriceDirection> PriceMeasure::directions() const {
    switch (condition.kind) {
        case ConditionKind::above:
        case ConditionKind::yearHigh: return {PriceDirection::up};
        case ConditionKind::below:
        case ConditionKind::yearLow: return {PriceDirection::down};
        case ConditionKind::dayMove:
        case ConditionKind::move:
        case ConditionKind::gap: break;
    }
    return {PriceDirection::up, PriceDirection::down};
}

std::optional<double> PriceMeasure::change(double price) const {
    if (!condition.percent) return std::nullopt;
    const auto change = PriceChange::of(price, level);
    return change ? std::optional(change->percent) : std::nullopt;
}

bool PriceMeasure::isReached(double price, PriceDirection direction) const {
    if (condition.percent) {
        const auto changed = change(price);
        return changed && inDirection(*changed, direction) >= *condition.percent - kTolerance;
    }
    const double beyond = inDirection(price - level, direction);
    return isOfYear(condition.kind) ? beyond > 0 : beyond >= 0;
}

bool PriceMeasure::hasGoneBack(double price, PriceDirection direction) const {
    if (condition.percent) {
        // Another gap needs another session.
        if (condition.kind == ConditionKind::gap) return false;
        const auto changed = change(price);
        return changed && inDirection(*changed, direction) <=
                              std::max(*condition.percent - kWayBack, 0.0) + kTolerance;
    }
    const double back = level * (1 - inDirection(kWayBack / 100, direction));
    return inDirection(price - back, direction) <= kTolerance;
}

std::string priceSentence(const std::string& symbol, const PriceMeasure& measure, double price,
                          PriceDirection direction) {
    const bool isUp = direction == PriceDirection::up;
    const auto figure = priceFigure(price), level = priceFigure(measure.level);
    const auto percent = percentFigure(measure.change(price).value_or(0));
    switch (measure.condition.kind) {
        case ConditionKind::above:
            return price > measure.level
                       ? fmt::format("{} rose to {}, above {}.", symbol, figure, level)
                       : fmt::format("{} reached {}.", symbol, figure);
        case ConditionKind::below:
            return price < measure.level
                       ? fmt::format("{} fell to {}, below {}.", symbol, figure, level)
                       : fmt::format("{} fell to {}.", symbol, figure);
        case ConditionKind::dayMove:
            return fmt::format("{} is {} {} today, at {}.", symbol, isUp ? "up" : "down", percent,
                               figure);
        case ConditionKind::move: {
            const auto minutes = measure.condition.minutes.value_or(0);
            return fmt::format("{} {} {} within {} {}, to {}.", symbol, isUp ? "rose" : "fell",
                               percent, minutes, minutes == 1 ? "minute" : "minutes", figure);
        }
        case ConditionKind::yearHigh:
            return fmt::format("{} passed its high of the year, {}, and is at {}.", symbol, level,
                               figure);
        case ConditionKind::yearLow:
            return fmt::format("{} passed its low of the year, {}, and is at {}.", symbol, level,
                               figure);
        case ConditionKind::gap:
            return fmt::format("{} opened {} {} than it closed, at {}.", symbol, percent,
                               isUp ? "higher" : "lower", figure);
    }
    return {};
}

}  // namespace kit
