#pragma once

#include <chrono>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/EnumTable.h"

namespace pressroom {

/// `always` is a market for tests: each day of Greenwich is a session.
enum class Market { newYork, taipei, seoul, always };

/// One day's trading.
struct Session {
    std::chrono::sys_seconds open;
    std::chrono::sys_seconds close;

    bool operator==(const Session&) const = default;
};

/// The state of a market at one moment. Every weekday is a trading day: the press room's world has
/// no holidays.
struct MarketDay {
    /// "PRE", "OPEN", "POST" or "CLOSED". Only New York trades before and after its hours.
    std::string_view state;
    /// The current session, the coming one when the state is "PRE", or the last.
    Session session;
};

MarketDay marketDay(Market market, std::chrono::sys_seconds now);

/// The last `count` sessions that have begun by `now`, oldest first.
std::vector<Session> sessionsUntil(Market market, std::chrono::sys_seconds now, std::size_t count);

/// How far the clocks of a place in the United States are ahead of UTC, where the standard
/// time is `standard`: summer time from two o'clock on the second Sunday of March until two
/// o'clock on the first of November.
std::chrono::hours americanOffset(std::chrono::sys_seconds now, std::chrono::hours standard);

inline constexpr std::chrono::hours kPacificStandard{-8};

}  // namespace pressroom

template <>
inline constexpr std::array<kit::EnumRow<pressroom::Market>, 4> kit::enumTable<pressroom::Market>{{
    {pressroom::Market::newYork, "newYork", "New York"},
    {pressroom::Market::taipei, "taipei", "Taipei"},
    {pressroom::Market::seoul, "seoul", "Seoul"},
    {pressroom::Market::always, "always", "Always"},
}};
