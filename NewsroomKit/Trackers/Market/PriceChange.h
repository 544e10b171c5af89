#pragma once

#include <optional>

namespace kit {

/// How far a price is from another one, such as the previous close.
struct PriceChange {
    double amount = 0;
    double percent = 0;

    /// Nothing without a reference, or where the percentage would not be a finite number.
    static std::optional<PriceChange> of(double price, std::optional<double> reference);

    bool operator==(const PriceChange&) const = default;
};

}  // namespace kit
