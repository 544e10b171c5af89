#pragma once

#include <chrono>
#include <functional>

namespace pressroom {

/// The time of the sample world: it equals the real time at the anchor and then runs
/// `speed` times as fast.
struct WorldClock {
    std::chrono::sys_seconds anchor;
    double speed = 1;
    std::function<std::chrono::system_clock::time_point()> realTime =
        std::chrono::system_clock::now;

    std::chrono::sys_seconds now() const {
        const std::chrono::duration<double> passed = realTime() - anchor;
        return anchor + std::chrono::floor<std::chrono::seconds>(passed * speed);
    }
};

}  // namespace pressroom
