#include "NewsroomKit/Attribution/TimeOrder.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

namespace kit {

namespace {

bool comesBefore(const Telling& left, const Telling& right) {
    return std::tie(left.at, left.key) < std::tie(right.at, right.key);
}

/// A day says less than a minute on that day.
const Telling* earlierOf(const Telling* known, const Telling& other) {
    if (!known) return &other;
    if (known->isDayOnly && !other.isDayOnly) return other.at < known->latest() ? &other : known;
    if (!known->isDayOnly && other.isDayOnly) return other.latest() <= known->at ? &other : known;
    return comesBefore(other, *known) ? &other : known;
}

std::vector<const Telling*> firstHandByTime(std::span<const Telling> tellings) {
    std::map<std::string, const Telling*> byOutlet;
    for (const auto& telling : tellings) {
        if (telling.isSecondHand) continue;
        auto& known = byOutlet[telling.key];
        known = earlierOf(known, telling);
    }
    std::vector<const Telling*> sorted;
    for (const auto& [key, telling] : byOutlet) sorted.push_back(telling);
    std::ranges::sort(sorted, [](auto* left, auto* right) { return comesBefore(*left, *right); });
    return sorted;
}

}  // namespace

FirstByTime firstByTime(std::span<const Telling> tellings) {
    const auto sorted = firstHandByTime(tellings);
    if (sorted.empty()) return {};
    const Telling& first = *sorted.front();
    for (const auto* other : sorted) {
        // Equal, or on the day of which only the day is known.
        if (other != &first && other->at <= first.at) return {};
        if (other != &first && first.isDayOnly && other->at < first.latest()) return {};
    }
    // Somebody had it earlier from an outlet that is not known.
    const bool isFollowed = std::ranges::none_of(tellings, [&](const Telling& other) {
        return other.isSecondHand && other.key != first.key && other.latest() <= first.at;
    });
    return {.first = &first, .isSure = isFollowed && !first.isDayOnly};
}

const Telling* earliestOf(std::span<const Telling> tellings, const std::string& key) {
    const Telling* earliest = nullptr;
    for (const auto& telling : tellings) {
        if (telling.key == key) earliest = earlierOf(earliest, telling);
    }
    return earliest;
}

const Telling* nextAfter(std::span<const Telling> tellings, const Telling& first) {
    const Telling* next = nullptr;
    for (const auto& telling : tellings) {
        if (telling.key != first.key && (!next || comesBefore(telling, *next))) next = &telling;
    }
    return next && next->at > first.at ? next : nullptr;
}

}  // namespace kit
