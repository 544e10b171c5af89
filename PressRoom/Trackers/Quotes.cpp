#include <algorithm>
#include <cmath>

#include "PressRoom/Trackers/PriceWalk.h"
#include "PressRoom/Trackers/WireService.h"

namespace pressroom {
namespace {

namespace json = boost::json;
using std::chrono::minutes;
using std::chrono::sys_seconds;

constexpr std::size_t kSessionsOfWeek = 5;
constexpr std::size_t kSessionsOfMonth = 22;
constexpr std::size_t kSessionsOfYear = 252;
constexpr minutes kDayStep{5};
constexpr minutes kWeekStep{30};

struct Extremes {
    double low;
    double high;

    void include(double price) {
        low = std::min(low, price);
        high = std::max(high, price);
    }
};

double cents(double amount) { return std::round(amount * 100) / 100; }

/// The steps that hold at that moment, in one.
WorldPriceStep stepAt(const WorldQuote& quote, sys_seconds anchor, sys_seconds now) {
    WorldPriceStep sum;
    const double minute = std::chrono::duration<double, std::ratio<60>>(now - anchor).count();
    for (const auto& step : quote.steps.value_or(std::vector<WorldPriceStep>())) {
        if (minute < step.minute || (step.until && minute >= *step.until)) continue;
        if (step.factor) sum.factor = *step.factor;
        if (step.split) sum.split = *step.split;
        if (step.currency) sum.currency = step.currency;
        if (step.stale) sum.stale = step.stale;
        if (step.minutesAhead) sum.minutesAhead = step.minutesAhead;
    }
    return sum;
}

/// One symbol at one moment. Prices move only while the market is open, once a minute.
class Ticker {
public:
    Ticker(const WorldQuote& quote, sys_seconds anchor, sys_seconds now)
        : quote_(quote),
          walk_(quote.symbol, quote.price, quote.dailySwing, anchor),
          day_(marketDay(quote.market, now)),
          traded_(sessionsUntil(quote.market, now, kSessionsOfYear + 1)),
          asOf_(std::min<sys_seconds>(std::chrono::floor<minutes>(now), traded_.back().close)),
          step_(stepAt(quote, anchor, now)) {}

    /// The common keys of a quote and a row of the board.
    json::object figures() const {
        json::object figures{{"symbol", quote_.symbol},
                             {"name", quote_.name},
                             {"currency", step_.currency.value_or(quote_.currency)},
                             {"price", cents(price() * step_.factor.value_or(1))},
                             {"market_state", day_.state}};
        if (!quote_.withoutPreviousClose.value_or(false)) figures["previous_close"] = reference();
        if (hasTradedToday()) {
            const auto [low, high] = dayExtremes();
            figures["day_high"] = high;
            figures["day_low"] = low;
            figures["volume"] = volume();
        }
        const auto [low, high] = yearExtremes();
        figures["year_high"] = high;
        figures["year_low"] = low;
        if (const auto stale = step_.stale ? step_.stale : quote_.stale) figures["stale"] = *stale;
        return figures;
    }

    const Session& session() const { return day_.session; }
    sys_seconds asOf() const {
        return asOf_ + minutes(std::lround(step_.minutesAhead.value_or(0)));
    }
    double price() const { return at(asOf_); }

    /// The last price of the session before the current one.
    double reference() const {
        const auto& before = hasTradedToday() ? traded_[traded_.size() - 2] : traded_.back();
        return at(before.close);
    }

    json::array pointsWithinDays(std::size_t sessions, minutes step) const {
        json::array points;
        for (const auto& session : last(sessions)) {
            const auto end = std::min(session.close, asOf_);
            for (auto time = session.open; time <= end; time += step) add(points, time, time);
        }
        return points;
    }

    json::array pointsOfDays(std::size_t sessions) const {
        json::array points;
        for (const auto& session : last(sessions)) {
            add(points, session.open, std::min(session.close, asOf_));
        }
        return points;
    }

private:
    double at(sys_seconds time) const {
        return step_.split ? cents(walk_.at(time) / *step_.split) : walk_.at(time);
    }

    bool hasTradedToday() const { return day_.session == traded_.back(); }

    std::vector<Session> last(std::size_t count) const {
        return {traded_.end() - static_cast<std::ptrdiff_t>(count), traded_.end()};
    }

    void add(json::array& points, sys_seconds time, sys_seconds priced) const {
        points.push_back(json::object{{"t", time.time_since_epoch().count()}, {"c", at(priced)}});
    }

    Extremes dayExtremes() const {
        Extremes extremes{price(), price()};
        for (auto time = day_.session.open; time <= asOf_; time += kDayStep) {
            extremes.include(at(time));
        }
        return extremes;
    }

    Extremes yearExtremes() const {
        auto extremes = hasTradedToday() ? dayExtremes() : Extremes{price(), price()};
        for (const auto& session : traded_) extremes.include(at(std::min(session.close, asOf_)));
        return extremes;
    }

    double volume() const {
        const std::chrono::duration<double> passed = asOf_ - day_.session.open;
        const std::chrono::duration<double> whole = day_.session.close - day_.session.open;
        return std::round(quote_.dailyVolume * (passed / whole));
    }

    const WorldQuote& quote_;
    PriceWalk walk_;
    MarketDay day_;
    std::vector<Session> traded_;  ///< sessions that have begun, oldest first
    sys_seconds asOf_;
    WorldPriceStep step_;
};

std::optional<json::array> pointsOf(const Ticker& ticker, std::string_view range) {
    if (range == "1d") return ticker.pointsWithinDays(1, kDayStep);
    if (range == "1w") return ticker.pointsWithinDays(kSessionsOfWeek, kWeekStep);
    if (range == "1m") return ticker.pointsOfDays(kSessionsOfMonth);
    if (range == "1y") return ticker.pointsOfDays(kSessionsOfYear);
    return std::nullopt;
}

}  // namespace

std::optional<json::object> quote(const WorldQuote& quote, std::string_view range,
                                  sys_seconds anchor, sys_seconds now) {
    const Ticker ticker(quote, anchor, now);
    auto points = pointsOf(ticker, range);
    if (!points) return std::nullopt;
    auto answer = ticker.figures();
    answer["session_open"] = ticker.session().open.time_since_epoch().count();
    answer["session_close"] = ticker.session().close.time_since_epoch().count();
    answer["as_of"] = ticker.asOf().time_since_epoch().count();
    answer["range"] = range;
    answer["points"] = *std::move(points);
    return answer;
}

json::object board(const WorldBoard& board, sys_seconds anchor, sys_seconds now) {
    json::array rows;
    for (const auto& quote : board.quotes) {
        if (!quote.group) continue;
        const Ticker ticker(quote, anchor, now);
        auto row = ticker.figures();
        row["group"] = *quote.group;
        row["relation"] = *quote.relation;
        if (row.contains("previous_close")) {
            const auto change = ticker.price() - ticker.reference();
            row["change"] = cents(change);
            row["change_percent"] = cents(change / ticker.reference() * 100);
        }
        row["points"] = ticker.pointsWithinDays(1, kWeekStep);
        rows.push_back(std::move(row));
    }
    return {{"quotes", std::move(rows)}};
}

}  // namespace pressroom
