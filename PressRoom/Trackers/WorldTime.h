#pragma once

#include <chrono>
#include <cmath>
#include <vector>

namespace pressroom {

inline std::chrono::sys_seconds worldTime(std::chrono::sys_seconds anchor, double minutesAgo) {
    return anchor - std::chrono::seconds(std::llround(minutesAgo * 60));
}

/// The state that holds at `now`, nullptr before the first; `states` are oldest first.
template <class State>
const State* stateAt(const std::vector<State>& states, std::chrono::sys_seconds anchor,
                     std::chrono::sys_seconds now) {
    const State* current = nullptr;
    for (const auto& state : states) {
        if (worldTime(anchor, state.minutesAgo) <= now) current = &state;
    }
    return current;
}

}  // namespace pressroom
