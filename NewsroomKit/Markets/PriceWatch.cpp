#include "NewsroomKit/Markets/PriceWatch.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Trackers/Updates/CatalogueDay.h"

namespace kit {

/// A quote that can be judged.
struct PriceWatch::Look {
    const StockQuote& quote;
    Instant at{};
    /// It was given before the session that it names, and belongs to the one before.
    bool isEarly = false;
    std::string session{};
};

namespace {

using ConditionKind = PriceCondition::Kind;

constexpr std::chrono::minutes kClocksDiffer{5};
constexpr std::chrono::minutes kGapIsSeenWithin{30};
/// In per cent: a price that is further from the last one may be an error of the service.
constexpr double kJump = 20;
constexpr double kJumpTolerance = 1e-9;

/// In per cent; positive upwards.
double distanceFrom(double last, double price) { return (price - last) / last * 100; }

bool isJumpFrom(double last, double price) {
    return std::abs(distanceFrom(last, price)) > kJump + kJumpTolerance;
}

/// The whole year of prices lies elsewhere than the last price, as after a split.
bool hasNewScale(const StockQuote& quote, double last) {
    const auto isPositive = [](const std::optional<double>& figure) {
        return figure && *figure > 0;
    };
    return (isPositive(quote.yearHigh) &&
            distanceFrom(last, *quote.yearHigh) < -kJump - kJumpTolerance) ||
           (isPositive(quote.yearLow) &&
            distanceFrom(last, *quote.yearLow) > kJump + kJumpTolerance);
}

std::optional<double> priceReference(const StockQuote& quote) {
    const auto close = quote.previousClose();
    return close && *close > 0 && std::isfinite(*close) ? close : std::nullopt;
}

bool contains(const std::vector<PriceDirection>& list, PriceDirection direction) {
    return std::ranges::find(list, direction) != list.end();
}

void insert(std::vector<PriceDirection>& list, PriceDirection direction) {
    if (!contains(list, direction)) list.push_back(direction);
}

bool isOncePerSession(ConditionKind kind) {
    return kind == ConditionKind::dayMove || kind == ConditionKind::yearHigh ||
           kind == ConditionKind::yearLow || kind == ConditionKind::gap;
}

bool isThreshold(ConditionKind kind) {
    return kind == ConditionKind::above || kind == ConditionKind::below;
}

/// Whether the condition could hold already when the rule was made. Gaps and moves within minutes
/// are seen while they happen.
bool canHoldAtStart(ConditionKind kind) {
    return kind != ConditionKind::gap && kind != ConditionKind::move;
}

bool isWithinMinutes(Instant past, Instant now, const PriceCondition& condition) {
    const double seconds = secondsSince1970(now) - secondsSince1970(past);
    return seconds <= 60.0 * static_cast<double>(condition.minutes.value_or(0));
}

/// The highest or the lowest price of the year.
std::optional<double> extremeOf(const StockQuote& quote, ConditionKind kind) {
    const auto extreme = kind == ConditionKind::yearHigh  ? quote.yearHigh
                         : kind == ConditionKind::yearLow ? quote.yearLow
                                                          : std::nullopt;
    return extreme && *extreme > 0 ? extreme : std::nullopt;
}

std::string sessionOf(const StockQuote& quote, Instant at) {
    if (quote.sessionOpen) return "open " + iso8601Text(*quote.sessionOpen);
    return "day " + signalDay(newYorkDay(at));
}

}  // namespace

std::optional<Instant> quoteTime(const StockQuote& quote) {
    if (quote.asOf || quote.points.empty()) return quote.asOf;
    return std::ranges::max(quote.points, {}, &StockQuote::Point::time).time;
}

PriceWatch::PriceWatch(std::string symbol, PriceCondition condition, std::optional<double> baseline)
    : symbol_(std::move(symbol)), condition_(condition) {
    state_.baseline = baseline;
    state_.lastPrice = baseline;
}

PriceWatch::PriceWatch(std::string symbol, PriceCondition condition, PriceState state)
    : symbol_(std::move(symbol)), condition_(condition), state_(std::move(state)) {}

QuoteOutcome PriceWatch::see(const StockQuote& quote, Instant seenAt) {
    const auto at = quoteTime(quote).value_or(seenAt);
    state_.fault = faultOf(quote, at, seenAt);
    if (state_.fault) return {.fault = state_.fault};
    if (state_.lastAt == at && state_.lastPrice == quote.price) return {};

    Look look{.quote = quote, .at = at};
    look.isEarly = quote.sessionOpen && at < *quote.sessionOpen;
    look.session = !look.isEarly ? sessionOf(quote, at)
                                 : state_.session.value_or("before " + sessionOf(quote, at));
    if (!state_.lastPrice || !isJumpFrom(*state_.lastPrice, quote.price)) return seeUsable(look);
    if (hasNewScale(quote, *state_.lastPrice)) {
        startAnew(look);
        return seeUsable(look);
    }
    const TimedPrice jump{.at = at, .price = quote.price};
    const auto candidate = std::exchange(state_.candidate, jump);
    const bool isUp = quote.price > *state_.lastPrice;
    if (candidate && candidate->at < at && (candidate->price > *state_.lastPrice) == isUp) {
        auto outcome = seeUsable(look);
        outcome.confirmsJump = true;
        return outcome;
    }
    state_.fault = QuoteFault::unconfirmed;
    // The same quote once more is no second one.
    return {.fault = candidate == jump ? std::nullopt : state_.fault};
}

std::optional<QuoteFault> PriceWatch::faultOf(const StockQuote& quote, Instant at,
                                              Instant seenAt) const {
    if (!quote.hasFinitePrices()) return QuoteFault::unreadable;
    if (quote.symbol != symbol_) return QuoteFault::symbol;
    if (quote.stale.value_or(false)) return QuoteFault::stale;
    if (quote.price <= 0) return QuoteFault::notPositive;
    if (at > seenAt + kClocksDiffer) return QuoteFault::future;
    if (state_.lastAt && at < *state_.lastAt) return QuoteFault::outOfOrder;
    if (state_.currency && quote.currency != *state_.currency) return QuoteFault::currency;
    return std::nullopt;
}

/// The first quote without a baseline, or one of a new scale, becomes the baseline.
QuoteOutcome PriceWatch::seeUsable(const Look& look) {
    if (!state_.baseline) {
        state_.baseline = look.quote.price;
        state_.baselineSession = look.session;
        state_.isGapJudged = !look.isEarly;
    }
    if (!state_.currency) state_.currency = look.quote.currency;
    state_.candidate.reset();
    if (state_.session != look.session) enterSession(look);

    QuoteOutcome outcome;
    if (const auto measure = measureOf(look)) {
        judgeStart(*measure);
        outcome.firing = judge(*measure, look);
    }
    remember(look);
    return outcome;
}

/// Prices on another scale mean nothing beside this one.
void PriceWatch::startAnew(const Look& look) {
    auto fired = state_.session == look.session ? state_.fired : std::vector<PriceDirection>();
    state_ = {.currency = state_.currency, .session = look.session, .fired = std::move(fired)};
}

void PriceWatch::enterSession(const Look& look) {
    const bool isFirst = !state_.session;
    state_.session = look.session;
    if (isFirst) return;
    state_.isStartJudged = true;
    state_.isGapJudged = false;
    state_.waiting.clear();
    state_.fired.clear();
    state_.recent.clear();
    state_.extremeBefore = state_.extreme;
}

std::optional<PriceMeasure> PriceWatch::measureOf(const Look& look) {
    switch (condition_.kind) {
        case ConditionKind::above:
        case ConditionKind::below:
            state_.hasReference = true;
            return PriceMeasure{.condition = condition_, .level = condition_.price.value_or(0)};
        case ConditionKind::dayMove: {
            const auto close = priceReference(look.quote);
            state_.hasReference = close.has_value();
            if (!close || look.isEarly) return std::nullopt;
            return PriceMeasure{.condition = condition_, .level = *close};
        }
        case ConditionKind::move: state_.hasReference = true; return measureOfMinutes(look);
        case ConditionKind::yearHigh:
        case ConditionKind::yearLow: return measureOfYear(look);
        case ConditionKind::gap:
            state_.hasReference = priceReference(look.quote).has_value();
            return measureOfGap(look);
    }
    return std::nullopt;
}

/// Against the extreme as it stood at the last close: the service counts today's prices in.
std::optional<PriceMeasure> PriceWatch::measureOfYear(const Look& look) {
    const auto& quote = look.quote;
    const bool isHigh = condition_.kind == ConditionKind::yearHigh;
    const auto today = isHigh ? quote.dayHigh : quote.dayLow;
    const auto extreme = extremeOf(quote, condition_.kind);
    const bool isOlder = today && extreme && (isHigh ? *today < *extreme : *today > *extreme);
    if (!state_.extremeBefore && !look.isEarly && isOlder) state_.extremeBefore = extreme;
    state_.hasReference = state_.extremeBefore || (look.isEarly && extreme);
    if (!state_.extremeBefore || look.isEarly) return std::nullopt;
    return PriceMeasure{.condition = condition_, .level = *state_.extremeBefore};
}

std::optional<PriceMeasure> PriceWatch::measureOfMinutes(const Look& look) const {
    if (look.isEarly || !look.quote.isOpen()) return std::nullopt;
    for (const auto& past : state_.recent) {
        if (past.at == look.at || !isWithinMinutes(past.at, look.at, condition_)) continue;
        return PriceMeasure{.condition = condition_, .level = past.price};
    }
    return std::nullopt;
}

std::optional<PriceMeasure> PriceWatch::measureOfGap(const Look& look) {
    if (look.isEarly || !look.quote.isOpen() || state_.isGapJudged) return std::nullopt;
    state_.isGapJudged = true;
    const auto close = priceReference(look.quote);
    const auto& opened = look.quote.sessionOpen;
    if (!close || !opened || look.at > *opened + kGapIsSeenWithin) return std::nullopt;
    return PriceMeasure{.condition = condition_, .level = *close};
}

void PriceWatch::judgeStart(const PriceMeasure& measure) {
    if (std::exchange(state_.isStartJudged, true) || !canHoldAtStart(condition_.kind)) return;
    for (const auto direction : measure.directions()) {
        if (measure.isReached(*state_.baseline, direction)) insert(state_.waiting, direction);
    }
}

std::optional<PriceFiring> PriceWatch::judge(const PriceMeasure& measure, const Look& look) {
    const double price = look.quote.price;
    std::erase_if(state_.waiting, [&](auto each) { return measure.hasGoneBack(price, each); });
    for (const auto direction : measure.directions()) {
        if (contains(state_.waiting, direction) || !measure.isReached(price, direction)) continue;
        if (isOncePerSession(condition_.kind) && contains(state_.fired, direction)) continue;
        if (isThreshold(condition_.kind) &&
            (!state_.lastPrice || measure.isReached(*state_.lastPrice, direction)))
            continue;
        insert(state_.waiting, direction);
        insert(state_.fired, direction);
        const auto change = measure.change(price);
        return PriceFiring{.value = price,
                           .change = change,
                           .direction = change ? std::optional(direction) : std::nullopt,
                           .sentence = priceSentence(symbol_, measure, price, direction)};
    }
    return std::nullopt;
}

void PriceWatch::remember(const Look& look) {
    state_.lastPrice = look.quote.price;
    state_.lastAt = look.at;
    state_.extreme = extremeOf(look.quote, condition_.kind);
    if (condition_.kind == ConditionKind::move) {
        // Another price of the same time corrects the one before.
        std::erase_if(state_.recent, [&](const TimedPrice& past) {
            return past.at == look.at || !isWithinMinutes(past.at, look.at, condition_);
        });
        state_.recent.push_back({.at = look.at, .price = look.quote.price});
    }
    state_.status = !state_.waiting.empty() ? PriceStatus::waiting
                    : state_.hasReference   ? PriceStatus::armed
                                            : PriceStatus::noReference;
}

}  // namespace kit
