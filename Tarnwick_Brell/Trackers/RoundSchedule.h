#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Desk/RefreshCadence.h"

namespace app {

/// When which rounds of fetching are due; `R` names them. It goes by the clock that only ever
/// runs forward; the wall clock tells only that the computer has slept, and how old the copies
/// of the last run are.
template <class R>
class RoundSchedule {
public:
    using Round = R;
    using Now = RefreshCadence::Now;
    using Steady = RefreshCadence::Steady;
    using Duration = std::chrono::milliseconds;
    using Intervals = std::map<Round, Duration>;
    /// Gives a number from -1 to 1. Intervals vary by it, so that many desks that started or
    /// woke at one moment do not ask in step.
    using Spread = std::function<double()>;
    /// When what is shown was fetched; a round without an entry never was.
    using Ages = std::map<Round, kit::Instant>;

    /// A round for each interval.
    RoundSchedule(const Intervals& intervals, const Ages& ages, Now now, Spread spread);

    void setInterval(Round round, Duration interval);

    void began(Round round, Now now);
    void ended(Round round, Now now, bool wasGood);
    /// Due at once, whatever its interval: at the user's wish.
    void ask(Round round, Now now);
    /// What has failed of late is due at once.
    void networkIsBack(Now now);

    /// To be called at least every half minute: it notices that the computer slept. What is
    /// under way is not due.
    std::vector<Round> due(Now now);
    /// When something becomes due, if nothing else happens.
    std::optional<Steady> next() const;

private:
    struct Entry {
        Duration interval{};
        Steady next{};
        Steady ended{};
        kit::Instant endedWall{};
        int failures = 0;  ///< in a row
        bool isUnderWay = false;
        bool isAskedAgain = false;  ///< while it was under way
    };

    static constexpr double kVariation = 0.1;
    static constexpr std::chrono::seconds kStartSpread{3};
    static constexpr std::chrono::seconds kWakeUpSpread{10};
    // More than timers are late on a busy machine.
    static constexpr std::chrono::seconds kSleepNoticed{45};
    // What fails is asked again at growing distances between these, whatever its interval.
    static constexpr Duration kLongestFirstRetry = std::chrono::minutes(5);
    static constexpr Duration kLongestRetry = std::chrono::minutes(15);

    static Duration times(Duration time, double factor) {
        return Duration(std::llround(static_cast<double>(time.count()) * factor));
    }

    Duration pause(const Entry& entry) const;
    Duration soon(Duration longest) const { return times(longest, std::abs(spread_())); }
    void catchUp(Now now);

    std::map<Round, Entry> rounds_;
    Spread spread_;
    Now lastLook_;
};

template <class R>
RoundSchedule<R>::RoundSchedule(const Intervals& intervals, const Ages& ages, Now now,
                                Spread spread)
    : spread_(std::move(spread)), lastLook_(now) {
    for (const auto& [round, interval] : intervals) {
        auto& entry = rounds_[round];
        entry.interval = interval;
        entry.next = now.steady + soon(kStartSpread);
        const auto age = ages.find(round);
        // A copy from the future was fetched before the clock was set back: its age is unknown.
        if (age == ages.end() || age->second > now.wall) continue;
        entry.endedWall = age->second;
        entry.ended = now.steady - (now.wall - age->second);
        entry.next = std::max(entry.next, entry.ended + pause(entry));
    }
}

template <class R>
typename RoundSchedule<R>::Duration RoundSchedule<R>::pause(const Entry& entry) const {
    if (entry.failures == 0) return times(entry.interval, 1 + kVariation * spread_());
    const auto retry =
        std::min(entry.interval, kLongestFirstRetry) * (1 << std::min(entry.failures, 8));
    return times(std::min(retry, kLongestRetry), 1 + kVariation * spread_());
}

template <class R>
void RoundSchedule<R>::setInterval(Round round, Duration interval) {
    auto& entry = rounds_.at(round);
    if (entry.interval == interval) return;
    entry.interval = interval;
    if (entry.failures == 0) entry.next = entry.ended + pause(entry);
}

template <class R>
void RoundSchedule<R>::began(Round round, Now now) {
    auto& entry = rounds_.at(round);
    entry.isUnderWay = true;
    entry.isAskedAgain = false;
    entry.next = now.steady;
}

template <class R>
void RoundSchedule<R>::ended(Round round, Now now, bool wasGood) {
    auto& entry = rounds_.at(round);
    entry.isUnderWay = false;
    entry.failures = wasGood ? 0 : entry.failures + 1;
    entry.ended = now.steady;
    entry.endedWall = now.wall;
    entry.next = entry.isAskedAgain ? now.steady : now.steady + pause(entry);
}

template <class R>
void RoundSchedule<R>::ask(Round round, Now now) {
    auto& entry = rounds_.at(round);
    entry.next = now.steady;
    entry.isAskedAgain = entry.isUnderWay;
}

template <class R>
void RoundSchedule<R>::networkIsBack(Now now) {
    for (auto& [round, entry] : rounds_) {
        if (entry.failures > 0) entry.next = std::min(entry.next, now.steady);
    }
}

template <class R>
void RoundSchedule<R>::catchUp(Now now) {
    for (auto& [round, entry] : rounds_) {
        const bool isOld = now.wall - entry.endedWall >= entry.interval;
        if (isOld) entry.next = std::min(entry.next, now.steady + soon(kWakeUpSpread));
    }
}

template <class R>
std::vector<R> RoundSchedule<R>::due(Now now) {
    const auto wall = now.wall - lastLook_.wall;
    const auto steady = now.steady - lastLook_.steady;
    lastLook_ = now;
    // What the steady clock missed was sleep, or a wall clock set forward.
    if (wall - steady > kSleepNoticed) catchUp(now);
    std::vector<Round> due;
    for (const auto& [round, entry] : rounds_) {
        if (!entry.isUnderWay && entry.next <= now.steady) due.push_back(round);
    }
    return due;
}

template <class R>
std::optional<typename RoundSchedule<R>::Steady> RoundSchedule<R>::next() const {
    std::optional<Steady> next;
    for (const auto& [round, entry] : rounds_) {
        if (!entry.isUnderWay) next = std::min(next.value_or(entry.next), entry.next);
    }
    return next;
}

}  // namespace app
