#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>

#include <QTimer>

#include "Tarnwick_Brell/Trackers/PollSchedule.h"

namespace app {

/// Begins the polls of trackers when they are due, and counts how they go. On the main thread.
class PollScheduler {
public:
    struct Outcome {
        std::size_t good = 0;
        std::size_t bad = 0;
    };

    struct Callbacks {
        std::function<void()> beforePoll{};    ///< before the schedule is asked what is due
        std::function<void(Tracker)> begin{};  ///< whoever fetches calls finish() in the end
        std::function<void()> changed{};       ///< a poll has begun
    };

    PollScheduler(kit::Clock clock, Callbacks callbacks);

    /// Nothing is fetched before it; call poll() next.
    void start(const PollSchedule::Ages& ages);
    bool hasStarted() const { return schedule_.has_value(); }

    // These do nothing before start().
    void setInterval(Tracker tracker, PollSchedule::Duration interval);
    void request(Tracker tracker);
    void networkIsBack();

    /// Begins what is due.
    void poll();
    /// Counts a fetch, be it of a running poll or by itself.
    void recordFetch(Tracker tracker, bool isGood);
    /// Ends a poll; call poll() next.
    Outcome finish(Tracker tracker);

    bool isRunning(Tracker tracker) const { return running_.contains(tracker); }
    /// Failed fetches of each tracker since its last poll without failures.
    std::size_t failures() const;
    /// The last success of anything.
    std::optional<kit::Instant> lastUpdated() const { return lastUpdated_; }
    /// Another program's success, found in the library, counts too.
    void recordCached(std::optional<kit::Instant> fetchedAt);

private:
    Clocks now() const;

    kit::Clock clock_;
    Callbacks callbacks_;
    std::map<Tracker, Outcome> running_;
    std::map<Tracker, std::size_t> failures_;
    std::optional<kit::Instant> lastUpdated_;
    std::optional<PollSchedule> schedule_;
    QTimer timer_;
};

}  // namespace app
