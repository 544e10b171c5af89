#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Markets/PriceCondition.h"
#include "NewsroomKit/Markets/PriceMeasure.h"
#include "NewsroomKit/Markets/PriceState.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit {

/// A condition that a price has met.
struct PriceFiring {
    double value = 0;                           ///< the price
    std::optional<double> change{};             ///< in per cent, of conditions on changes
    std::optional<PriceDirection> direction{};  ///< of conditions on changes
    std::string sentence{};

    bool operator==(const PriceFiring&) const = default;
};

/// What became of a quote.
struct QuoteOutcome {
    std::optional<PriceFiring> firing{};
    std::optional<QuoteFault> fault{};
    /// The quote confirms the jump of an earlier one, whose fault is settled.
    bool confirmsJump = false;
};

/// Whether the quotes of a symbol, as they come, meet a condition. A condition that holds at the
/// first price waits until the price has gone back, or for the next session. Prices are read from
/// single quotes only: rows of the board carry no time.
class PriceWatch {
public:
    PriceWatch(std::string symbol, PriceCondition condition, std::optional<double> baseline);
    /// Goes on where another one has stopped.
    PriceWatch(std::string symbol, PriceCondition condition, PriceState state);

    /// `seenAt`: when the quote was fetched, by the desk's clock.
    QuoteOutcome see(const StockQuote& quote, Instant seenAt);

    const PriceState& state() const { return state_; }

private:
    struct Look;

    std::optional<QuoteFault> faultOf(const StockQuote& quote, Instant at, Instant seenAt) const;
    QuoteOutcome seeUsable(const Look& look);
    void enterSession(const Look& look);
    void startAnew(const Look& look);
    std::optional<PriceMeasure> measureOf(const Look& look);
    std::optional<PriceMeasure> measureOfYear(const Look& look);
    std::optional<PriceMeasure> measureOfMinutes(const Look& look) const;
    std::optional<PriceMeasure> measureOfGap(const Look& look);
    void judgeStart(const PriceMeasure& measure);
    std::optional<PriceFiring> judge(const PriceMeasure& measure, const Look& look);
    void remember(const Look& look);

    std::string symbol_;
    PriceCondition condition_;
    PriceState state_;
};

/// When the price was given: by the service, else the time of the newest point.
std::optional<Instant> quoteTime(const StockQuote& quote);

}  // namespace kit
