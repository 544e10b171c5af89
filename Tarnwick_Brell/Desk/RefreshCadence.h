#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "Tarnwick_Brell/Desk/Clocks.h"

namespace app {

/// When the next pass is due. It goes by the clock that only ever runs forward, so that a
/// wall clock that jumps brings neither a storm of passes nor silence; the wall clock tells
/// only that the computer has slept.
class RefreshCadence {
public:
    static constexpr std::chrono::seconds kLiveInterval{60};
    static constexpr std::chrono::hours kLongestLive{2};

    /// Gives a pause of up to the named length, so that many desks that wake at one moment do not
    /// ask the outlets at one moment.
    using Jitter = std::function<std::chrono::milliseconds(std::chrono::milliseconds)>;

    /// `lastRefresh`: of the last run, if any.
    RefreshCadence(std::chrono::minutes interval, std::optional<kit::Instant> lastRefresh,
                   Clocks now, Jitter jitter);

    void setInterval(std::chrono::minutes interval) { interval_ = interval; }
    /// Passes come every minute until then, but no longer than two hours from now.
    void goLive(kit::Instant until, Clocks now);
    void endLive() { liveUntil_.reset(); }
    /// Nothing once it is over.
    std::optional<kit::Instant> liveUntil(kit::Instant now) const;

    void passBegan(Clocks now);
    /// After a pass without a network the next one comes sooner, at growing distances.
    void passEnded(Clocks now, bool failedAsAWhole);

    /// To be called at least every half minute: it notices that the computer slept.
    bool isDue(Clocks now);
    Clocks::Steady nextPass(Clocks now) const;

private:
    std::chrono::milliseconds pause(kit::Instant wall) const;

    std::chrono::milliseconds interval_;
    Jitter jitter_;
    std::optional<kit::Instant> liveUntil_;
    Clocks lastCheck_;
    kit::Instant beganWall_;
    Clocks::Steady began_;                  ///< what the cadence counts from
    Clocks::Steady earliest_;               ///< not before, whatever the cadence says
    std::optional<Clocks::Steady> wakeUp_;  ///< the pass that catches up after a sleep
    int failures_ = 0;                      ///< passes in a row without a network
};

}  // namespace app
