#include "NewsroomKit/Trackers/Market/PriceChange.h"

#include <cmath>

namespace kit {

std::optional<PriceChange> PriceChange::of(double price, std::optional<double> reference) {
    if (!reference || *reference == 0) return std::nullopt;
    const double amount = price - *reference;
    const double percent = amount / *reference * 100;
    if (!std::isfinite(percent)) return std::nullopt;
    return PriceChange{.amount = amount, .percent = percent};
}

}  // namespace kit
