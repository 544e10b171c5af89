#pragma once

#include <optional>
#include <vector>

#include "NewsroomKit/Markets/PriceCondition.h"
#include "NewsroomKit/Markets/PriceState.h"

namespace kit {

/// The figure that a condition holds a price against: a threshold, or what a change in per cent is
/// counted from.
struct PriceMeasure {
    PriceCondition condition{};
    double level = 0;

    /// Those in which the condition can be met.
    std::vector<PriceDirection> directions() const;

    bool isReached(double price, PriceDirection direction) const;
    /// Far enough to the other side for the condition to be met once more.
    bool hasGoneBack(double price, PriceDirection direction) const;
    /// In per cent; nothing for thresholds.
    std::optional<double> change(double price) const;
};

/// One sentence that says what happened to the price, ready for a notification.
std::string priceSentence(const std::string& symbol, const PriceMeasure& measure, double price,
                          PriceDirection direction);

}  // namespace kit
