#include "Tarnwick_Brell/Models/Charts/ChartScale.h"

#include <algorithm>
#include <cmath>

#include <QLocale>

namespace app {

namespace {

constexpr double kSteps = 4;
constexpr double kFlat = 1e-6;        // of the price: less is no movement, but rounding
constexpr double kFlatMargin = 0.01;  // of the price
constexpr double kWholePercents = 100;
constexpr double kMostDecimals = 6;

/// The smallest of 1, 2 and 5 times a power of ten that is not below it.
double roundedUp(double step) {
    const double power = std::pow(10, std::floor(std::log10(step)));
    for (const double factor : {1, 2, 5}) {
        if (step <= factor * power * (1 + kFlat)) return factor * power;
    }
    return 10 * power;
}

}  // namespace

ChartScale::ChartScale(double low, double high, Unit unit) : unit_(unit) {
    const double whole = unit == Unit::price ? high : kWholePercents;
    if (high - low <= whole * kFlat) {
        const double margin = whole * kFlatMargin;
        low -= margin;
        high += margin;
    }
    step_ = roundedUp((high - low) / kSteps);
    // A price on a tick must not open another step for the sake of its last bit.
    first_ = std::floor(low / step_ + kFlat);
    last_ = std::ceil(high / step_ - kFlat);
}

double ChartScale::position(double price) const {
    return std::clamp((last_ - price / step_) / (last_ - first_), 0.0, 1.0);
}

double ChartScale::valueAt(double position) const {
    return (last_ - position * (last_ - first_)) * step_;
}

int ChartScale::side(double price) const {
    const double steps = price / step_;
    return steps > last_ + kFlat ? 1 : steps < first_ - kFlat ? -1 : 0;
}

std::vector<ChartTick> ChartScale::ticks() const {
    const auto decimals = std::clamp(std::ceil(-std::log10(step_) - kFlat), 0.0, kMostDecimals);
    std::vector<ChartTick> ticks;
    for (double at = last_; at >= first_; --at) {
        const double value = at * step_;
        auto label = QLocale().toString(std::abs(value), 'f', static_cast<int>(decimals));
        if (unit_ == Unit::percent) label += QLocale().percent();
        if (at != 0 && unit_ == Unit::percent) label.prepend(at > 0 ? u'+' : u'\u2212');
        ticks.push_back({.position = position(value), .label = label});
    }
    return ticks;
}

}  // namespace app
