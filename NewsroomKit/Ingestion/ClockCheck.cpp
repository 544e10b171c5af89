#include "NewsroomKit/Ingestion/ClockCheck.h"

#include <algorithm>

namespace kit {

void ClockCheck::add(Instant local, std::chrono::sys_seconds server) {
    const auto difference = local - server;
    differences_.insert(std::upper_bound(differences_.begin(), differences_.end(), difference),
                        difference);
}

/// The median. Of two middle values the smaller difference counts, in favour of the clock.
Instant::duration ClockCheck::difference() const {
    if (differences_.empty()) return {};
    const auto upper = differences_[differences_.size() / 2];
    const auto lower = differences_[(differences_.size() - 1) / 2];
    return abs(lower) < abs(upper) ? lower : upper;
}

bool ClockCheck::seemsWrong() const { return abs(difference()) > kTolerance; }

Instant ClockCheck::corrected(Instant local) const {
    return seemsWrong() ? local - difference() : local;
}

}  // namespace kit
