#include "NewsroomKit/Markets/PriceMoves.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

#include <fmt/format.h>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "NewsroomKit/Trackers/Market/PriceChange.h"

namespace kit {

namespace {

using std::chrono::days;

constexpr std::chrono::hours kUsualClose{16};
constexpr std::chrono::minutes kFutureOfPoints{5};
constexpr double kMoveTolerance = 1e-9;

struct DailyPrice {
    StockQuote::Point point{};
    std::chrono::local_days day{};
    double change = 0;  ///< from the price before; in per cent
};

std::vector<DailyPrice> dailyPrices(const StockQuote& quote, const TimeZone& zone) {
    std::vector<DailyPrice> prices;
    for (const auto& point : quote.points) {
        if (!(point.close > 0) || !std::isfinite(point.close)) continue;
        if (quote.asOf && point.time > *quote.asOf + kFutureOfPoints) continue;
        if (!prices.empty() && point.time <= prices.back().point.time) continue;
        prices.push_back({.point = point, .day = dayOfPrice(point.time, zone)});
    }
    for (std::size_t i = 1; i < prices.size(); ++i) {
        const auto change = PriceChange::of(prices[i].point.close, prices[i - 1].point.close);
        prices[i].change = change ? change->percent : 0;
    }
    return prices;
}

double medianChange(const std::vector<DailyPrice>& prices) {
    std::vector<double> changes;
    for (std::size_t i = 1; i < prices.size(); ++i) changes.push_back(std::abs(prices[i].change));
    std::ranges::sort(changes);
    const auto middle = changes.size() / 2;
    if (changes.size() % 2 == 1) return changes[middle];
    return (changes[middle - 1] + changes[middle]) / 2;
}

/// What the clocks of the exchange show at the close.
std::chrono::seconds closingTime(const StockQuote& quote, const TimeZone& zone) {
    if (!quote.sessionClose) return kUsualClose;
    const auto shown = zone.shownAt(*quote.sessionClose);
    return shown - std::chrono::floor<days>(shown);
}

std::string moveTitle(const StockQuote& quote, const PriceMove& move) {
    return fmt::format("{} {} by {:.1f} %, against {:.1f} % on a usual day.", quote.symbol,
                       move.change < 0 ? "fell" : "rose", std::abs(move.change), move.usual);
}

struct ExchangeRow {
    std::string_view ending;
    std::string_view zone;
};

// By the endings that services put after the symbols of shares.
constexpr std::array kExchanges{
    ExchangeRow{".TW", "Asia/Taipei"},   ExchangeRow{".TWO", "Asia/Taipei"},
    ExchangeRow{".T", "Asia/Tokyo"},     ExchangeRow{".KS", "Asia/Seoul"},
    ExchangeRow{".KQ", "Asia/Seoul"},    ExchangeRow{".HK", "Asia/Hong_Kong"},
    ExchangeRow{".SS", "Asia/Shanghai"}, ExchangeRow{".SZ", "Asia/Shanghai"},
    ExchangeRow{".L", "Europe/London"},  ExchangeRow{".DE", "Europe/Berlin"},
    ExchangeRow{".PA", "Europe/Paris"},  ExchangeRow{".AS", "Europe/Amsterdam"},
    ExchangeRow{".SW", "Europe/Zurich"}};

}  // namespace

std::string exchangeZone(std::string_view symbol) {
    for (const auto& row : kExchanges) {
        if (symbol.ends_with(row.ending)) return std::string(row.zone);
    }
    return kExchangeZone;
}

std::chrono::local_days dayOfPrice(Instant time, const TimeZone& exchange) {
    if (time == std::chrono::floor<days>(time)) {
        return std::chrono::local_days(std::chrono::floor<days>(time.time_since_epoch()));
    }
    return std::chrono::floor<days>(exchange.shownAt(time));
}

std::vector<PriceMove> priceMoves(const StockQuote& quote, const TimeZone& zone) {
    const auto prices = dailyPrices(quote, zone);
    if (prices.size() < 2) return {};
    const double usual = medianChange(prices);
    const auto closing = closingTime(quote, zone);
    std::vector<PriceMove> moves;
    for (auto i = prices.size() - 1; i > 0; --i) {
        const auto& [point, day, change] = prices[i];
        if (std::abs(change) < kLeastMove - kMoveTolerance ||
            std::abs(change) < kLeastUnusual * usual - kMoveTolerance)
            continue;
        moves.push_back({.day = signalDay(Instant(day.time_since_epoch())),
                         .change = change,
                         .usual = usual,
                         .point = point.time,
                         .close = point.close,
                         .closeBefore = zone.firstOf(prices[i - 1].day + closing),
                         .closeOfDay = zone.firstOf(day + closing)});
    }
    return moves;
}

std::vector<Signal> signalsOf(const std::optional<StockQuote>& before, const StockQuote& year,
                              const std::string& readAt, Instant now) {
    std::vector<Signal> found;
    if (!before || before->points.empty()) return found;
    // The last day that was known may not have been over.
    const auto from = before->points.back().time;
    for (const auto& move : priceMoves(year, TimeZone(exchangeZone(year.symbol)))) {
        if (move.point < from || move.closeOfDay > now) continue;
        auto signal = signalOf(SignalEvent::priceMove);
        signal.id = "price|" + year.symbol + "|" + move.day;
        signal.subject = year.symbol;
        signal.title = moveTitle(year, move);
        signal.detail = year.name;
        signal.happenedAt = move.closeOfDay;
        signal.seenAt = now;
        signal.evidence = {{"after", numberValue(move.close)},
                           {"change", numberValue(move.change)},
                           {"usual", numberValue(move.usual)},
                           {"currency", year.currency},
                           {"day", move.day},
                           {"readAt", readAt}};
        found.push_back(std::move(signal));
    }
    return found;
}

}  // namespace kit
