#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <utility>

#include <QObject>
#include <QTimer>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Desk/RefreshCadence.h"

namespace app {

/// A number from -1 to 1.
double randomSpread();

/// The rounds of a store that refreshes by itself: begins each when its schedule says so, and
/// counts how they go. On the main thread.
template <class Schedule>
class Rounds {
public:
    using Round = typename Schedule::Round;

    struct Outcome {
        std::size_t good = 0;
        std::size_t bad = 0;
    };

    struct Callbacks {
        std::function<void()> beforeLook{};  ///< before it is asked what is due
        std::function<void(Round)> begin{};  ///< whoever does it calls end()
        std::function<void()> changed{};
    };

    Rounds(kit::Clock clock, Callbacks callbacks)
        : clock_(std::move(clock)), callbacks_(std::move(callbacks)) {
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    }

    /// Absent before start().
    Schedule* schedule() { return schedule_ ? &*schedule_ : nullptr; }
    bool haveStarted() const { return schedule_.has_value(); }
    /// Call look() next.
    void start(const typename Schedule::Ages& ages) {
        schedule_.emplace(ages, now(), randomSpread);
    }

    RefreshCadence::Now now() const {
        return {.wall = clock_(), .steady = std::chrono::steady_clock::now()};
    }

    /// Begins what is due.
    void look();
    void ask(Round round);
    void networkIsBack();

    /// A fetch of that round has come to its end, or one outside of all rounds.
    void note(Round round, bool isGood);
    /// Call look() next.
    Outcome end(Round round);

    bool isUnderWay(Round round) const { return underWay_.contains(round); }
    /// Failed fetches of each round since that round last went wholly well.
    std::size_t failures() const;
    /// The last success of anything.
    std::optional<kit::Instant> lastUpdated() const { return lastUpdated_; }
    void noteStored(std::optional<kit::Instant> fetchedAt) {
        lastUpdated_ = std::max(lastUpdated_, fetchedAt);
    }

private:
    // Often enough to notice that the computer slept, seldom enough to let it idle.
    static constexpr std::chrono::milliseconds kLongestTick = std::chrono::seconds(30);

    kit::Clock clock_;
    Callbacks callbacks_;
    std::map<Round, Outcome> underWay_;
    std::map<Round, std::size_t> failures_;
    std::optional<kit::Instant> lastUpdated_;
    std::optional<Schedule> schedule_;
    QTimer timer_;
};

template <class Schedule>
void Rounds<Schedule>::look() {
    if (callbacks_.beforeLook) callbacks_.beforeLook();
    for (const auto round : schedule_->due(now())) {
        underWay_[round] = {};
        schedule_->began(round, now());
        callbacks_.begin(round);
        callbacks_.changed();
    }
    const auto next = schedule_->next();
    const auto wait =
        next
            ? std::chrono::ceil<std::chrono::milliseconds>(*next - std::chrono::steady_clock::now())
            : kLongestTick;
    timer_.start(std::clamp(wait, std::chrono::milliseconds(0), kLongestTick));
}

template <class Schedule>
void Rounds<Schedule>::ask(Round round) {
    if (!schedule_) return;
    schedule_->ask(round, now());
    look();
}

template <class Schedule>
void Rounds<Schedule>::networkIsBack() {
    if (!schedule_) return;
    schedule_->networkIsBack(now());
    look();
}

template <class Schedule>
void Rounds<Schedule>::note(Round round, bool isGood) {
    const auto outcome = underWay_.find(round);
    if (outcome != underWay_.end()) ++(isGood ? outcome->second.good : outcome->second.bad);
    if (isGood) {
        lastUpdated_ = clock_();
    } else {
        ++failures_[round];
    }
}

template <class Schedule>
typename Rounds<Schedule>::Outcome Rounds<Schedule>::end(Round round) {
    const auto outcome = underWay_[round];
    underWay_.erase(round);
    if (outcome.bad == 0) failures_.erase(round);
    // One bad fetch among several must not slow the others down.
    schedule_->ended(round, now(), outcome.good > 0);
    return outcome;
}

template <class Schedule>
std::size_t Rounds<Schedule>::failures() const {
    std::size_t count = 0;
    for (const auto& [round, failures] : failures_) count += failures;
    return count;
}

}  // namespace app
