#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit {

/// One row of the board of related quotes.
struct BoardQuote {
    std::string symbol{};
    std::string name{};
    std::string group{};     ///< the board's section
    std::string relation{};  ///< how the company relates to Apple
    std::string currency{};
    double price = 0;
    std::optional<double> previousClose{};
    std::optional<double> change{};
    std::optional<double> changePercent{};
    std::string marketState{};
    std::optional<double> dayHigh{};
    std::optional<double> dayLow{};
    std::optional<double> yearHigh{};
    std::optional<double> yearLow{};
    std::optional<double> volume{};
    std::optional<bool> stale{};
    std::vector<StockQuote::Point> points{};

    bool operator==(const BoardQuote&) const = default;
};

template <>
struct JSONFields<BoardQuote> {
    static constexpr auto fields = std::tuple{
        field("symbol", &BoardQuote::symbol),
        field("name", &BoardQuote::name),
        field("group", &BoardQuote::group),
        field("relation", &BoardQuote::relation),
        field("currency", &BoardQuote::currency),
        field("price", &BoardQuote::price),
        field("previous_close", &BoardQuote::previousClose),
        field("change", &BoardQuote::change),
        field("change_percent", &BoardQuote::changePercent),
        field("market_state", &BoardQuote::marketState),
        field("day_high", &BoardQuote::dayHigh),
        field("day_low", &BoardQuote::dayLow),
        field("year_high", &BoardQuote::yearHigh),
        field("year_low", &BoardQuote::yearLow),
        field("volume", &BoardQuote::volume),
        field("stale", &BoardQuote::stale),
        field("points", &BoardQuote::points),
    };
};

}  // namespace kit
