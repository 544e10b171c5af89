#include "Tarnwick_Brell/Trackers/TrackerSchedule.h"

#include <algorithm>
#include <cmath>

namespace desk {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace {

constexpr double kVariation = 0.1;
constexpr milliseconds kStartSpread = 3s;
constexpr milliseconds kWakeUpSpread = 10s;
// More than timers are late on a busy machine.
constexpr milliseconds kSleepNoticed = 45s;
// Failing trackers are asked at growing distances between these, whatever their interval.
constexpr milliseconds kLongestFirstRetry = 5min;
constexpr milliseconds kLongestRetry = 15min;

milliseconds inMilliseconds(auto duration) {
    return std::chrono::duration_cast<milliseconds>(duration);
}

milliseconds times(milliseconds time, double factor) {
    return milliseconds(std::llround(static_cast<double>(time.count()) * factor));
}

}  // namespace

TrackerSchedule::TrackerSchedule(const Ages& ages, Now now, Spread spread)
    : spread_(std::move(spread)), lastLook_(now) {
    for (const auto round : kTrackerRounds) {
        auto& entry = rounds_[round];
        entry.next = now.steady + soon(kStartSpread);
        const auto age = ages.find(round);
        // A copy from the future was fetched before the clock was set back: its age is unknown.
        if (age == ages.end() || age->second > now.wall) continue;
        entry.endedWall = age->second;
        entry.ended = now.steady - (now.wall - age->second);
        entry.next = std::max(entry.next, entry.ended + pause(round));
    }
}

milliseconds TrackerSchedule::interval(TrackerRound round) const {
    switch (round) {
        case TrackerRound::status: return 2min;
        case TrackerRound::quotes: return isMarketOpen_ ? 1min : 15min;
        case TrackerRound::releases:
        case TrackerRound::board: return 5min;
        case TrackerRound::events: return 1h;
    }
    throw std::logic_error("an unknown round");
}

milliseconds TrackerSchedule::pause(TrackerRound round) const {
    const auto failures = rounds_.at(round).failures;
    const auto usual = interval(round);
    if (failures == 0) return times(usual, 1 + kVariation * spread_());
    const auto retry = std::min(usual, kLongestFirstRetry) * (1 << std::min(failures, 8));
    return times(std::min(retry, kLongestRetry), 1 + kVariation * spread_());
}

milliseconds TrackerSchedule::soon(milliseconds longest) const {
    return times(longest, std::abs(spread_()));
}

void TrackerSchedule::setMarketOpen(bool open) {
    if (open == isMarketOpen_) return;
    isMarketOpen_ = open;
    auto& quotes = rounds_.at(TrackerRound::quotes);
    if (quotes.failures == 0) quotes.next = quotes.ended + pause(TrackerRound::quotes);
}

void TrackerSchedule::began(TrackerRound round, Now now) {
    auto& entry = rounds_.at(round);
    entry.isUnderWay = true;
    entry.isAskedAgain = false;
    entry.next = now.steady;
}

void TrackerSchedule::ended(TrackerRound round, Now now, bool wasGood) {
    auto& entry = rounds_.at(round);
    entry.isUnderWay = false;
    entry.failures = wasGood ? 0 : entry.failures + 1;
    entry.ended = now.steady;
    entry.endedWall = now.wall;
    entry.next = entry.isAskedAgain ? now.steady : now.steady + pause(round);
}

void TrackerSchedule::ask(TrackerRound round, Now now) {
    auto& entry = rounds_.at(round);
    entry.next = now.steady;
    entry.isAskedAgain = entry.isUnderWay;
}

void TrackerSchedule::networkIsBack(Now now) {
    for (auto& [round, entry] : rounds_) {
        if (entry.failures > 0) entry.next = std::min(entry.next, now.steady);
    }
}

void TrackerSchedule::catchUp(Now now) {
    for (auto& [round, entry] : rounds_) {
        const bool isOld = now.wall - entry.endedWall >= interval(round);
        if (isOld) entry.next = std::min(entry.next, now.steady + soon(kWakeUpSpread));
    }
}

std::vector<TrackerRound> TrackerSchedule::due(Now now) {
    const auto wall = inMilliseconds(now.wall - lastLook_.wall);
    const auto steady = inMilliseconds(now.steady - lastLook_.steady);
    lastLook_ = now;
    // What the steady clock missed was sleep, or a wall clock set forward.
    if (wall - steady > kSleepNoticed) catchUp(now);
    std::vector<TrackerRound> due;
    for (const auto& [round, entry] : rounds_) {
        if (!entry.isUnderWay && entry.next <= now.steady) due.push_back(round);
    }
    return due;
}

std::optional<TrackerSchedule::Steady> TrackerSchedule::next() const {
    std::optional<Steady> next;
    for (const auto& [round, entry] : rounds_) {
        if (!entry.isUnderWay) next = std::min(next.value_or(entry.next), entry.next);
    }
    return next;
}

}  // namespace desk
