#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Editorial/MarketNews.h"
#include "NewsroomKit/Markets/CompanyTopic.h"
#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Stories/Story.h"
#include "NewsroomKit/Text/TimeZone.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit {

/// Stories that give the same reason for a move.
struct MoveReason {
    MarketNews::Reason reason{};
    /// Those of the best cluster first: the firmest sourcing, then the most outlets.
    std::vector<std::string> stories{};

    bool operator==(const MoveReason&) const = default;
};

/// A day on which a price moved unusually far.
struct PriceMove {
    std::string day{};  ///< "2026-11-13", where the exchange is
    double change = 0;  ///< in per cent, from the close before
    double usual = 0;   ///< the median of all daily changes of the quote, without their signs
    std::vector<MoveReason> reasons{};

    Instant point{};  ///< the time of the day's point in the quote
    double close = 0;
    // What was published later than one close, up to the other, can be its reason.
    Instant closeBefore{};
    Instant closeOfDay{};

    bool operator==(const PriceMove&) const = default;
};

inline constexpr double kLeastMove = 1.5;   ///< in per cent
inline constexpr double kLeastUnusual = 2;  ///< times the usual change
inline constexpr const char* kExchangeZone = "America/New_York";

/// The time zone of the exchange that a symbol names at its end, as "2330.TW" does; else New
/// York's.
std::string exchangeZone(std::string_view symbol);

/// The day of a price. Services stamp days with the opening of the session, or with midnight in
/// Greenwich, whatever the place of the exchange.
std::chrono::local_days dayOfPrice(Instant time, const TimeZone& exchange);

/// The moves of a quote with daily points, the newest first, without reasons.
std::vector<PriceMove> priceMoves(const StockQuote& quote, const TimeZone& zone);

/// Gives the moves their reasons: headlines of that time about the company that say why its price
/// moves. Nothing is made up: a move may have none. `clusters` are of all `stories`.
void addReasons(std::vector<PriceMove>& moves, const StockQuote& quote,
                std::span<const Story> stories, std::span<const StoryCluster> clusters);

/// Whether a story was published in the time of the move.
bool isOfMove(const Story& story, const PriceMove& move);

/// A signal for each move on a day that is over, with the id "price|AAPL|2026-11-13". Nothing is
/// told of the past of a symbol that was not followed `before`.
std::vector<Signal> signalsOf(const std::optional<StockQuote>& before, const StockQuote& year,
                              const std::string& readAt, Instant now);

template <>
struct JSONFields<MoveReason> {
    static constexpr auto fields = std::tuple{
        field("reason", &MoveReason::reason),
        field("stories", &MoveReason::stories),
    };
};

template <>
struct JSONFields<PriceMove> {
    static constexpr auto fields = std::tuple{
        field("day", &PriceMove::day),
        field("change", &PriceMove::change),
        field("usual", &PriceMove::usual),
        field("reasons", &PriceMove::reasons),
    };
};

}  // namespace kit
