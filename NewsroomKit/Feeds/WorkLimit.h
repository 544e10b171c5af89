#pragma once

#include <chrono>
#include <stop_token>
#include <utility>

namespace kit {

/// Stops work that is no longer wanted: the program ends, or the work has taken far longer than any
/// real feed needs. Long loops check it between two steps.
class WorkLimit {
public:
    using Clock = std::chrono::steady_clock;

    /// No limit.
    WorkLimit() = default;

    WorkLimit(std::stop_token stop, Clock::time_point deadline)
        : stop_(std::move(stop)), deadline_(deadline) {}

    bool isReached() const { return stop_.stop_requested() || Clock::now() >= deadline_; }

private:
    std::stop_token stop_;
    Clock::time_point deadline_ = Clock::time_point::max();
};

}  // namespace kit
