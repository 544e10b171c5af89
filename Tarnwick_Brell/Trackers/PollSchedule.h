#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "Tarnwick_Brell/Desk/Clocks.h"
#include "Tarnwick_Brell/Trackers/Tracker.h"

namespace app {

/// When which trackers are due.
class PollSchedule {
public:
    using Duration = std::chrono::milliseconds;
    /// Gives a number from -1 to 1. Intervals vary by it, so that many desks that started or
    /// woke at one moment do not ask in step.
    using Spread = std::function<double()>;
    /// When the shown values were fetched; a tracker without an entry never was.
    using Ages = std::map<Tracker, kit::Instant>;

    PollSchedule(const Ages& ages, Clocks now, Spread spread);

    void setInterval(Tracker tracker, Duration interval);

    void began(Tracker tracker, Clocks now);
    void ended(Tracker tracker, Clocks now, bool wasGood);
    /// Due at once, whatever its interval: the user wants it.
    void request(Tracker tracker, Clocks now);
    /// Trackers whose last poll failed are due at once.
    void networkIsBack(Clocks now);

    /// Call it at least every half minute: it notices that the computer slept. A tracker whose
    /// poll is running is not due.
    std::vector<Tracker> due(Clocks now);
    /// When the next tracker becomes due by itself.
    std::optional<Clocks::Steady> next() const;

private:
    struct Entry {
        Duration interval{};
        Clocks::Steady next{};
        Clocks::Steady ended{};
        kit::Instant endedWall{};
        int failures = 0;  ///< in a row
        bool isRunning = false;
        bool isRequestedAgain = false;  ///< while it was running
    };

    Duration pause(const Entry& entry) const;
    Duration jitter(Duration longest) const;
    void catchUp(Clocks now);

    std::map<Tracker, Entry> entries_;
    Spread spread_;
    Clocks lastCheck_;
};

}  // namespace app
