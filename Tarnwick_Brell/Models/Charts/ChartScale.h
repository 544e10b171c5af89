#pragma once

#include <vector>

#include "Tarnwick_Brell/Models/Charts/ChartRows.h"

namespace app {

/// An axis of prices or of percentages that begins and ends at round values.
class ChartScale {
public:
    enum class Unit { price, percent };

    /// For values from `low` to `high`, both finite; prices are above 0. Values that are all the
    /// same stand in the middle.
    ChartScale(double low, double high, Unit unit = Unit::price);

    /// From 0 at the top to 1 at the bottom.
    double position(double price) const;
    /// The value at a position, also beyond the axis.
    double valueAt(double position) const;
    /// -1 for a value below the axis, 1 for one above it.
    int side(double price) const;

    /// Round values, the highest first; two to seven of them.
    std::vector<ChartTick> ticks() const;

private:
    Unit unit_;
    double step_;
    double first_;  ///< the lowest and the highest tick, in steps
    double last_;
};

}  // namespace app
