#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

enum class QuoteRange { day, week, month, year };

template <>
inline constexpr std::array<EnumRow<QuoteRange>, 4> enumTable<QuoteRange>{{
    {QuoteRange::day, "1d", "Day"},
    {QuoteRange::week, "1w", "Week"},
    {QuoteRange::month, "1m", "Month"},
    {QuoteRange::year, "1y", "Year"},
}};

/// One symbol over one range. The service gives times as seconds since 1970 or as ISO 8601
/// text; both read.
struct StockQuote {
    struct Point {
        Instant time{};
        double close = 0;

        bool operator==(const Point&) const = default;
    };

    std::string symbol{};
    std::string name{};
    std::string currency{};
    double price = 0;
    std::optional<double> serverPreviousClose{};
    std::string marketState{};
    std::optional<Instant> sessionOpen{};
    std::optional<Instant> sessionClose{};
    std::optional<double> dayHigh{};
    std::optional<double> dayLow{};
    std::optional<double> yearHigh{};
    std::optional<double> yearLow{};
    std::optional<double> volume{};
    std::optional<Instant> asOf{};
    std::vector<Point> points{};  ///< oldest first
    std::string range{};          ///< the one that was asked for: raw value of a QuoteRange
    std::optional<bool> stale{};  ///< the service itself has only old data

    bool isOpen() const { return marketState == "OPEN"; }

    /// What the day's change is measured against: the service's figure when it has one,
    /// otherwise the last close before the current session that the points tell.
    std::optional<double> previousClose() const;

    /// Whether the figures beside the points are numbers that can be reckoned with.
    bool hasFinitePrices() const;

    bool operator==(const StockQuote&) const = default;
};

template <>
struct JSONFields<StockQuote::Point> {
    static constexpr auto fields = std::tuple{
        field("t", &StockQuote::Point::time),
        field("c", &StockQuote::Point::close),
    };
};

template <>
struct JSONFields<StockQuote> {
    static constexpr auto fields = std::tuple{
        field("symbol", &StockQuote::symbol),
        field("name", &StockQuote::name),
        field("currency", &StockQuote::currency),
        field("price", &StockQuote::price),
        field("previous_close", &StockQuote::serverPreviousClose),
        field("market_state", &StockQuote::marketState),
        field("session_open", &StockQuote::sessionOpen),
        field("session_close", &StockQuote::sessionClose),
        field("day_high", &StockQuote::dayHigh),
        field("day_low", &StockQuote::dayLow),
        field("year_high", &StockQuote::yearHigh),
        field("year_low", &StockQuote::yearLow),
        field("volume", &StockQuote::volume),
        field("as_of", &StockQuote::asOf),
        field("points", &StockQuote::points),
        field("range", &StockQuote::range),
        field("stale", &StockQuote::stale),
    };
};

}  // namespace kit
