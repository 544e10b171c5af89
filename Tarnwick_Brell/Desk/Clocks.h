#pragma once

#include <chrono>

#include "NewsroomKit/Records/Instant.h"

namespace app {

/// One moment on both clocks. Schedules go by the steady one, so that a wall clock that jumps
/// brings neither a storm of fetches nor silence; the wall clock tells how old copies are and that
/// the computer has slept.
struct Clocks {
    using Steady = std::chrono::steady_clock::time_point;

    kit::Instant wall{};
    Steady steady{};
};

/// Whether the computer slept between two moments. The steady clock misses that time; a wall clock
/// that is set forward looks the same. Timers of a busy machine are late by less.
inline bool hasSlept(Clocks earlier, Clocks later) {
    const auto missed = (later.wall - earlier.wall) - (later.steady - earlier.steady);
    return missed > std::chrono::seconds(45);
}

}  // namespace app
