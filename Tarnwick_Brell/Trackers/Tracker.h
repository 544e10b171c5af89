#pragma once

#include <array>
#include <chrono>

namespace app {

/// What the desk follows beside the news. The files of one tracker are fetched together.
enum class Tracker {
    status,
    releases,
    quotes,
    board,
    events,
    signing,
    updates,
    charts,
    filings,
    court,
    press,
    backend,
    pages
};

inline constexpr std::array kTrackers{
    Tracker::status,  Tracker::releases, Tracker::quotes, Tracker::board,   Tracker::events,
    Tracker::signing, Tracker::updates,  Tracker::charts, Tracker::filings, Tracker::court,
    Tracker::press,   Tracker::backend,  Tracker::pages};

/// How often a tracker is fetched. `isMarketOpen` matters for quotes alone.
constexpr std::chrono::minutes pollInterval(Tracker tracker, bool isMarketOpen = false) {
    using std::chrono::minutes;
    switch (tracker) {
        case Tracker::status: return minutes(2);
        case Tracker::quotes: return minutes(isMarketOpen ? 1 : 15);
        case Tracker::releases:
        case Tracker::board: return minutes(5);
        case Tracker::events: return minutes(60);
        case Tracker::signing:
        case Tracker::updates:
        case Tracker::charts: return minutes(30);
        case Tracker::filings: return minutes(30);
        case Tracker::court: return minutes(10);
        case Tracker::press: return minutes(20);
        // Most of its files wait for longer.
        case Tracker::backend: return minutes(10);
        // Each page has a time of its own, and a change is confirmed within minutes.
        case Tracker::pages: return minutes(1);
    }
    return minutes(30);
}

/// Companies file after New York's close: from 20:00 to 24:00 UTC.
constexpr std::chrono::minutes filingsInterval(std::chrono::hours sinceMidnightUTC) {
    return std::chrono::minutes(sinceMidnightUTC >= std::chrono::hours(20) ? 5 : 30);
}

}  // namespace app
