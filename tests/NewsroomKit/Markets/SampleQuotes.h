#pragma once

#include <chrono>
#include <string>
#include <utility>

#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit::samples {

using namespace std::chrono_literals;

/// 3 November 2026, half past nine in New York.
inline constexpr Instant kOpening{std::chrono::seconds(1793716200)};

/// A quote of AAPL within a session of six and a half hours; session 1 is the day after 0.
struct Quoted {
    StockQuote quote{};
    Instant seenAt{};

    Quoted(double price, std::chrono::minutes afterOpening, int session = 0) {
        const auto opening = kOpening + std::chrono::days(session);
        quote = {.symbol = "AAPL",
                 .name = "Apple",
                 .currency = "USD",
                 .price = price,
                 .marketState = "OPEN",
                 .sessionOpen = opening,
                 .sessionClose = opening + 390min,
                 .asOf = opening + afterOpening,
                 .range = "1d"};
        seenAt = *quote.asOf + 2s;
    }

    Quoted with(auto StockQuote::* member, auto value) const {
        auto changed = *this;
        changed.quote.*member = std::move(value);
        return changed;
    }
    Quoted from(double previousClose) const {
        return with(&StockQuote::serverPreviousClose, previousClose);
    }
    Quoted high(double day, double year) const {
        return with(&StockQuote::dayHigh, day).with(&StockQuote::yearHigh, year);
    }
    Quoted low(double day, double year) const {
        return with(&StockQuote::dayLow, day).with(&StockQuote::yearLow, year);
    }
    Quoted state(std::string state) const {
        return with(&StockQuote::marketState, std::move(state));
    }
    Quoted seen(Instant at) const {
        auto changed = *this;
        changed.seenAt = at;
        return changed;
    }
};

}  // namespace kit::samples
