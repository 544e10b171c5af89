#include "PressRoom/Trackers/Market.h"

#include <algorithm>
#include <array>
#include <optional>

namespace pressroom {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

struct Hours {
    minutes open;
    minutes close;
    hours standard;  ///< ahead of UTC in winter
    bool hasSummerTime;
    minutes preOpen;    ///< equal to `open` without trading before it
    minutes postClose;  ///< equal to `close` without trading after it
};

// Indexed by Market; in the market's local time.
constexpr std::array<Hours, 4> kHours{{
    {9h + 30min, 16h, -5h, true, 4h, 20h},
    {9h, 13h + 30min, 8h, false, 9h, 13h + 30min},
    {9h, 15h + 30min, 9h, false, 9h, 15h + 30min},
    {0min, 24h, 0h, false, 0min, 24h},
}};

const Hours& hoursOf(Market market) { return kHours[static_cast<std::size_t>(market)]; }

hours offsetAt(Market market, sys_seconds now) {
    const auto& clock = hoursOf(market);
    return clock.hasSummerTime ? americanOffset(now, clock.standard) : clock.standard;
}

local_days dayAt(Market market, sys_seconds now) {
    return local_days(floor<days>(now.time_since_epoch() + offsetAt(market, now)));
}

/// Clocks change on Sundays, so the offset at noon holds for the whole trading day.
sys_seconds instant(Market market, local_days day, minutes time) {
    const sys_seconds noon(day.time_since_epoch() + 12h);
    return sys_seconds(day.time_since_epoch() + time - offsetAt(market, noon));
}

std::optional<Session> sessionOn(Market market, local_days day) {
    const weekday name(day);
    const bool isWeekend = name == Saturday || name == Sunday;
    if (isWeekend && market != Market::always) return std::nullopt;
    const auto& clock = hoursOf(market);
    return Session{instant(market, day, clock.open), instant(market, day, clock.close)};
}

}  // namespace

hours americanOffset(sys_seconds now, hours standard) {
    const auto year = year_month_day(floor<days>(now)).year();
    const sys_seconds begin = sys_days(year / March / Sunday[2]) + 2h - standard;
    const sys_seconds end = sys_days(year / November / Sunday[1]) + 1h - standard;
    return now >= begin && now < end ? standard + 1h : standard;
}

std::vector<Session> sessionsUntil(Market market, sys_seconds now, std::size_t count) {
    std::vector<Session> sessions;
    for (auto day = dayAt(market, now); sessions.size() < count; day -= days(1)) {
        const auto session = sessionOn(market, day);
        if (session && session->open <= now) sessions.push_back(*session);
    }
    std::ranges::reverse(sessions);
    return sessions;
}

MarketDay marketDay(Market market, sys_seconds now) {
    const auto& clock = hoursOf(market);
    const auto today = dayAt(market, now);
    if (const auto session = sessionOn(market, today)) {
        if (now >= session->open && now < session->close) return {"OPEN", *session};
        if (now < session->open && now >= instant(market, today, clock.preOpen)) {
            return {"PRE", *session};
        }
        if (now >= session->close && now < instant(market, today, clock.postClose)) {
            return {"POST", *session};
        }
    }
    return {"CLOSED", sessionsUntil(market, now, 1).front()};
}

}  // namespace pressroom
