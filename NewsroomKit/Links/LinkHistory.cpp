#include "NewsroomKit/Links/LinkHistory.h"

#include <algorithm>
#include <utility>

namespace kit {

namespace {

constexpr std::chrono::hours kHour{1};

bool isWithin(Instant then, Instant::duration span, Instant now) {
    return then <= now && now - then < span;
}

}  // namespace

Instant LinkHistory::nextRequest(Instant now) const {
    Instant next = now;
    if (pausedAt_ && isWithin(*pausedAt_, kPause, now)) next = *pausedAt_ + kPause;
    std::vector<Instant> recent;
    for (const Instant at : requests_) {
        if (isWithin(at, kHour, now)) recent.push_back(at);
    }
    if (recent.empty()) return next;
    next = std::max(next, recent.back() + kBetweenRequests);
    const bool full = recent.size() >= kMostInAnHour;
    return full ? std::max(next, recent[recent.size() - kMostInAnHour] + kHour) : next;
}

void LinkHistory::addRequest(Instant now) {
    std::erase_if(requests_, [&](Instant at) { return !isWithin(at, kHour, now); });
    requests_.push_back(now);
}

void LinkHistory::pause(Instant now) { pausedAt_ = now; }

bool LinkHistory::hasFailed(std::string_view storyID, Instant now) const {
    return std::any_of(failures_.begin(), failures_.end(), [&](const Failure& failure) {
        return failure.storyID == storyID && isWithin(failure.at, kFailureRemembered, now);
    });
}

void LinkHistory::addFailure(std::string storyID, Instant now) {
    std::erase_if(failures_, [&](const Failure& failure) {
        return failure.storyID == storyID || !isWithin(failure.at, kFailureRemembered, now);
    });
    failures_.push_back({std::move(storyID), now});
    if (failures_.size() > kMostFailures) failures_.erase(failures_.begin());
}

}  // namespace kit
