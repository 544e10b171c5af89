#pragma once

#include <chrono>
#include <vector>

#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// Compares this computer's clock with the dates of the servers' answers. The majority counts,
/// because single servers have wrong clocks too.
class ClockCheck {
public:
    /// Wrong time zones and slow caches cause smaller differences.
    static constexpr std::chrono::hours kTolerance{24};

    /// Forgets all answers, because the clock may have been changed since.
    void reset() { differences_.clear(); }

    void add(Instant local, std::chrono::sys_seconds server);

    /// False while no answer had a date.
    bool seemsWrong() const;

    /// The servers' time when the clock seems wrong, otherwise `local` itself.
    Instant corrected(Instant local) const;

private:
    Instant::duration difference() const;

    std::vector<Instant::duration> differences_;  ///< how far the clock is ahead; ascending
};

}  // namespace kit
