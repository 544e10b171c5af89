#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// What a price must do for the user to be told.
struct PriceCondition {
    enum class Kind {
        above,     ///< rises to the price or above it
        below,     ///< falls to the price or below it
        dayMove,   ///< moves by so many per cent from the previous close
        move,      ///< moves by so many per cent within some minutes
        yearHigh,  ///< passes the highest price of the year
        yearLow,
        gap  ///< opens so many per cent away from the previous close
    };

    Kind kind = Kind::above;
    std::optional<double> price{};          ///< of above and below; in the quote's currency
    std::optional<double> percent{};        ///< of dayMove, move and gap; positive
    std::optional<std::int64_t> minutes{};  ///< of move

    bool operator==(const PriceCondition&) const = default;
};

template <>
inline constexpr std::array<EnumRow<PriceCondition::Kind>, 7> enumTable<PriceCondition::Kind>{{
    {PriceCondition::Kind::above, "above", "Rises above"},
    {PriceCondition::Kind::below, "below", "Falls below"},
    {PriceCondition::Kind::dayMove, "dayMove", "Moves in a day"},
    {PriceCondition::Kind::move, "move", "Moves in minutes"},
    {PriceCondition::Kind::yearHigh, "yearHigh", "New high of the year"},
    {PriceCondition::Kind::yearLow, "yearLow", "New low of the year"},
    {PriceCondition::Kind::gap, "gap", "Opens with a gap"},
}};

/// {"kind": "above", "price": 300}: the keys of the kind's own figures are required.
template <>
struct Codec<PriceCondition> {
    static json::value encode(const PriceCondition& condition, DateStyle dates);
    /// Throws RecordError also for a figure that is not positive and finite.
    static PriceCondition decode(const json::value& value);
};

}  // namespace kit
