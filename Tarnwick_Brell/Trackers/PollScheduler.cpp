#include "Tarnwick_Brell/Trackers/PollScheduler.h"

#include <algorithm>
#include <random>
#include <utility>

namespace app {

namespace {

// Often enough to notice that the computer slept, seldom enough to let it idle.
constexpr std::chrono::milliseconds kLongestTick = std::chrono::seconds(30);

double randomSpread() {
    std::random_device source;
    return std::uniform_real_distribution<double>(-1, 1)(source);
}

}  // namespace

PollScheduler::PollScheduler(kit::Clock clock, Callbacks callbacks)
    : clock_(std::move(clock)), callbacks_(std::move(callbacks)) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { poll(); });
}

Clocks PollScheduler::now() const {
    return {.wall = clock_(), .steady = std::chrono::steady_clock::now()};
}

void PollScheduler::start(const PollSchedule::Ages& ages) {
    schedule_.emplace(ages, now(), randomSpread);
}

void PollScheduler::setInterval(Tracker tracker, PollSchedule::Duration interval) {
    if (schedule_) schedule_->setInterval(tracker, interval);
}

void PollScheduler::request(Tracker tracker) {
    if (!schedule_) return;
    schedule_->request(tracker, now());
    poll();
}

void PollScheduler::networkIsBack() {
    if (!schedule_) return;
    schedule_->networkIsBack(now());
    poll();
}

void PollScheduler::poll() {
    callbacks_.beforePoll();
    for (const auto tracker : schedule_->due(now())) {
        running_[tracker] = {};
        schedule_->began(tracker, now());
        callbacks_.begin(tracker);
        callbacks_.changed();
    }
    const auto next = schedule_->next();
    const auto wait =
        next ? std::chrono::ceil<std::chrono::milliseconds>(*next - now().steady) : kLongestTick;
    timer_.start(std::clamp(wait, std::chrono::milliseconds(0), kLongestTick));
}

void PollScheduler::recordFetch(Tracker tracker, bool isGood) {
    const auto outcome = running_.find(tracker);
    if (outcome != running_.end()) ++(isGood ? outcome->second.good : outcome->second.bad);
    if (isGood) {
        lastUpdated_ = clock_();
    } else {
        ++failures_[tracker];
    }
}

PollScheduler::Outcome PollScheduler::finish(Tracker tracker) {
    const auto outcome = running_[tracker];
    running_.erase(tracker);
    if (outcome.bad == 0) failures_.erase(tracker);
    // One bad fetch among several must not slow the others down, and no file is no failure.
    schedule_->ended(tracker, now(), outcome.good > 0 || outcome.bad == 0);
    return outcome;
}

std::size_t PollScheduler::failures() const {
    std::size_t count = 0;
    for (const auto& [tracker, failures] : failures_) count += failures;
    return count;
}

void PollScheduler::recordCached(std::optional<kit::Instant> fetchedAt) {
    lastUpdated_ = std::max(lastUpdated_, fetchedAt);
}

}  // namespace app
