#include "Tarnwick_Brell/Desk/RefreshCadence.h"

#include <algorithm>
#include <utility>

namespace app {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds kStartJitter = 3s;
constexpr milliseconds kWakeUpJitter = 10s;
constexpr milliseconds kBetweenPasses = 10s;
constexpr milliseconds kFirstRetry = 30s;

milliseconds inMilliseconds(auto duration) {
    return std::chrono::duration_cast<milliseconds>(duration);
}

}  // namespace

RefreshCadence::RefreshCadence(std::chrono::minutes interval,
                               std::optional<kit::Instant> lastRefresh, Clocks now, Jitter jitter)
    : interval_(interval), jitter_(std::move(jitter)), lastCheck_(now) {
    const bool isRecent =
        lastRefresh && *lastRefresh <= now.wall && now.wall - *lastRefresh < interval_;
    const auto waited = isRecent ? inMilliseconds(now.wall - *lastRefresh) : interval_;
    began_ = now.steady - waited;
    beganWall_ = now.wall - waited;
    earliest_ = now.steady + (isRecent ? 0ms : jitter_(kStartJitter));
}

void RefreshCadence::goLive(kit::Instant until, Clocks now) {
    liveUntil_ = std::min(until, now.wall + kLongestLive);
}

std::optional<kit::Instant> RefreshCadence::liveUntil(kit::Instant now) const {
    // A clock that was set back must not make it live for longer.
    const bool holds = liveUntil_ && now < *liveUntil_ && *liveUntil_ - now <= kLongestLive;
    return holds ? liveUntil_ : std::nullopt;
}

void RefreshCadence::passBegan(Clocks now) {
    began_ = now.steady;
    beganWall_ = now.wall;
    wakeUp_.reset();
}

void RefreshCadence::passEnded(Clocks now, bool failedAsAWhole) {
    failures_ = failedAsAWhole ? failures_ + 1 : 0;
    earliest_ = now.steady + kBetweenPasses;
}

milliseconds RefreshCadence::pause(kit::Instant wall) const {
    const milliseconds usual = liveUntil(wall) ? milliseconds(kLiveInterval) : interval_;
    if (failures_ == 0) return usual;
    return std::min(usual, kFirstRetry * (1 << std::min(failures_ - 1, 10)));
}

bool RefreshCadence::isDue(Clocks now) {
    const bool slept = hasSlept(std::exchange(lastCheck_, now), now);
    // One pass catches up, soon.
    if (!wakeUp_ && slept && now.wall - beganWall_ >= pause(now.wall)) {
        wakeUp_ = now.steady + jitter_(kWakeUpJitter);
    }
    return now.steady >= nextPass(now);
}

Clocks::Steady RefreshCadence::nextPass(Clocks now) const {
    auto next = began_ + pause(now.wall);
    if (wakeUp_) next = std::min(next, *wakeUp_);
    return std::max(next, earliest_);
}

}  // namespace app
