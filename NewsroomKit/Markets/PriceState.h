#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

enum class PriceDirection { up, down };

template <>
inline constexpr std::array<EnumRow<PriceDirection>, 2> enumTable<PriceDirection>{{
    {PriceDirection::up, "up", "Up"},
    {PriceDirection::down, "down", "Down"},
}};

/// Why a quote has no effect on a rule; the first that applies is given.
enum class QuoteFault {
    unreadable,
    symbol,
    stale,
    notPositive,
    future,
    outOfOrder,
    currency,
    unconfirmed
};

template <>
inline constexpr std::array<EnumRow<QuoteFault>, 8> enumTable<QuoteFault>{{
    {QuoteFault::unreadable, "unreadable", "The quote can't be read."},
    {QuoteFault::symbol, "symbol", "The quote is of another symbol."},
    {QuoteFault::stale, "stale", "The service has only old prices."},
    {QuoteFault::notPositive, "notPositive", "The price is not above zero."},
    {QuoteFault::future, "future", "The price is from the future."},
    {QuoteFault::outOfOrder, "outOfOrder", "The price is older than the last one."},
    {QuoteFault::currency, "currency", "The price is in another currency."},
    {QuoteFault::unconfirmed, "unconfirmed", "A jump of more than 20 % is not confirmed yet."},
}};

enum class PriceStatus {
    armed,
    waiting,      ///< it fired, or held when the rule was made, and has not gone back since
    noReference,  ///< what the price is compared with is not known yet
    noQuote
};

template <>
inline constexpr std::array<EnumRow<PriceStatus>, 4> enumTable<PriceStatus>{{
    {PriceStatus::armed, "armed", "Armed"},
    {PriceStatus::waiting, "waiting", "Waiting"},
    {PriceStatus::noReference, "noReference", "No reference yet"},
    {PriceStatus::noQuote, "noQuote", "No quote yet"},
}};

struct TimedPrice {
    Instant at{};
    double price = 0;

    bool operator==(const TimedPrice&) const = default;
};

/// All that a PriceWatch remembers of the quotes that it has seen.
struct PriceState {
    PriceStatus status = PriceStatus::noQuote;
    std::optional<double> baseline{};  ///< the price when the rule was made, or its scale changed
    std::optional<std::string> baselineSession{};  ///< absent: that of the first quote
    /// Whether the condition held at the baseline is known or cannot be known any more.
    bool isStartJudged = false;
    std::optional<std::string> currency{};
    std::optional<double> lastPrice{};  ///< usable
    std::optional<Instant> lastAt{};
    std::optional<std::string> session{};
    std::vector<PriceDirection> waiting{};  ///< directions that cannot fire before they go back
    std::vector<PriceDirection> fired{};    ///< in this session
    bool isGapJudged = false;               ///< in this session
    std::optional<double> extreme{};        ///< of the year, by the last usable quote
    std::optional<double> extremeBefore{};  ///< of the year, at the last close
    bool hasReference = false;
    std::vector<TimedPrice> recent{};       ///< of this session, as far back as the condition looks
    std::optional<TimedPrice> candidate{};  ///< of a jump that waits for a second quote
    std::optional<QuoteFault> fault{};      ///< of the last quote

    bool operator==(const PriceState&) const = default;
};

template <>
struct JSONFields<TimedPrice> {
    static constexpr auto fields = std::tuple{
        field("at", &TimedPrice::at),
        field("price", &TimedPrice::price),
    };
};

template <>
struct JSONFields<PriceState> {
    static constexpr auto fields = std::tuple{
        field("status", &PriceState::status),
        field("baseline", &PriceState::baseline),
        field("baselineSession", &PriceState::baselineSession),
        field("startJudged", &PriceState::isStartJudged),
        field("currency", &PriceState::currency),
        field("lastPrice", &PriceState::lastPrice),
        field("lastAt", &PriceState::lastAt),
        field("session", &PriceState::session),
        field("waiting", &PriceState::waiting),
        field("fired", &PriceState::fired),
        field("gapJudged", &PriceState::isGapJudged),
        field("extreme", &PriceState::extreme),
        field("extremeBefore", &PriceState::extremeBefore),
        field("hasReference", &PriceState::hasReference),
        field("recent", &PriceState::recent),
        field("candidate", &PriceState::candidate),
        field("fault", &PriceState::fault),
    };
};

}  // namespace kit
