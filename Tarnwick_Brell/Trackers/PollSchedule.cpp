#include "Tarnwick_Brell/Trackers/PollSchedule.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace app {

using namespace std::chrono_literals;
using Duration = PollSchedule::Duration;

namespace {

constexpr double kVariation = 0.1;
constexpr Duration kStartSpread = 3s;
constexpr Duration kWakeUpSpread = 10s;
// A tracker that fails is polled at growing distances between these, whatever its interval.
constexpr Duration kLongestFirstRetry = 5min;
constexpr Duration kLongestRetry = 15min;

Duration times(Duration time, double factor) {
    return Duration(std::llround(static_cast<double>(time.count()) * factor));
}

}  // namespace

PollSchedule::PollSchedule(const Ages& ages, Clocks now, Spread spread)
    : spread_(std::move(spread)), lastCheck_(now) {
    for (const auto tracker : kTrackers) {
        auto& entry = entries_[tracker];
        entry.interval = pollInterval(tracker);
        entry.next = now.steady + jitter(kStartSpread);
        const auto age = ages.find(tracker);
        // A copy from the future was fetched before the clock was set back: its age is unknown.
        if (age == ages.end() || age->second > now.wall) continue;
        entry.endedWall = age->second;
        entry.ended = now.steady - (now.wall - age->second);
        entry.next = std::max(entry.next, entry.ended + pause(entry));
    }
}

Duration PollSchedule::pause(const Entry& entry) const {
    if (entry.failures == 0) return times(entry.interval, 1 + kVariation * spread_());
    const auto retry =
        std::min(entry.interval, kLongestFirstRetry) * (1 << std::min(entry.failures, 8));
    return times(std::min(retry, kLongestRetry), 1 + kVariation * spread_());
}

Duration PollSchedule::jitter(Duration longest) const {
    return times(longest, std::abs(spread_()));
}

void PollSchedule::setInterval(Tracker tracker, Duration interval) {
    auto& entry = entries_.at(tracker);
    if (entry.interval == interval) return;
    entry.interval = interval;
    if (entry.failures == 0) entry.next = entry.ended + pause(entry);
}

void PollSchedule::began(Tracker tracker, Clocks now) {
    auto& entry = entries_.at(tracker);
    entry.isRunning = true;
    entry.isRequestedAgain = false;
    entry.next = now.steady;
}

void PollSchedule::ended(Tracker tracker, Clocks now, bool wasGood) {
    auto& entry = entries_.at(tracker);
    entry.isRunning = false;
    entry.failures = wasGood ? 0 : entry.failures + 1;
    entry.ended = now.steady;
    entry.endedWall = now.wall;
    entry.next = entry.isRequestedAgain ? now.steady : now.steady + pause(entry);
}

void PollSchedule::request(Tracker tracker, Clocks now) {
    auto& entry = entries_.at(tracker);
    entry.next = now.steady;
    entry.isRequestedAgain = entry.isRunning;
}

void PollSchedule::networkIsBack(Clocks now) {
    for (auto& [tracker, entry] : entries_) {
        if (entry.failures > 0) entry.next = std::min(entry.next, now.steady);
    }
}

void PollSchedule::catchUp(Clocks now) {
    for (auto& [tracker, entry] : entries_) {
        const bool isOld = now.wall - entry.endedWall >= entry.interval;
        if (isOld) entry.next = std::min(entry.next, now.steady + jitter(kWakeUpSpread));
    }
}

std::vector<Tracker> PollSchedule::due(Clocks now) {
    if (hasSlept(std::exchange(lastCheck_, now), now)) catchUp(now);
    std::vector<Tracker> due;
    for (const auto& [tracker, entry] : entries_) {
        if (!entry.isRunning && entry.next <= now.steady) due.push_back(tracker);
    }
    return due;
}

std::optional<Clocks::Steady> PollSchedule::next() const {
    std::optional<Clocks::Steady> next;
    for (const auto& [tracker, entry] : entries_) {
        if (!entry.isRunning) next = std::min(next.value_or(entry.next), entry.next);
    }
    return next;
}

}  // namespace app
