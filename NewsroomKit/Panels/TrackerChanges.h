#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Trackers/CachedValue.h"
#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"

namespace kit {

/// A service that is in trouble, a system that is out, or a record or finding that was logged, as
/// briefs report it.
struct TrackerChange {
    enum class Kind { problem, build, logged };

    Kind kind = Kind::problem;
    std::string subject{};            ///< "App Store", "iOS 26.6 beta 1"; a sentence if logged
    std::string build{};              ///< "23G5028e"; may be empty
    std::optional<Instant> at{};      ///< the problem's start, or the release
    std::optional<Instant> seenAt{};  ///< when the answer that says so came
    SignalKind signal{};              ///< of what was logged
    std::string link{};

    bool operator==(const TrackerChange&) const = default;
};

/// The last good answers of the trackers that briefs report on; null for what never came.
struct TrackerAnswers {
    struct Status {
        const AppleServiceStatus::Services* services = nullptr;
        std::optional<Instant> fetchedAt{};
    };

    Status consumer{};
    Status developer{};
    const std::vector<PlatformRelease>* releases = nullptr;
    // Of the log what is notable, the last logged first.
    std::span<const LoggedSignal> records{};
    std::span<const LoggedSignal> findings{};

    /// The values must outlive it.
    static TrackerAnswers of(const CachedValue<AppleServiceStatus::Services>& consumer,
                             const CachedValue<AppleServiceStatus::Services>& developer,
                             const CachedValue<std::vector<PlatformRelease>>& releases);
};

/// Of each kind of what is logged a brief has the newest.
inline constexpr std::size_t kMostLoggedChanges = 3;

/// Ongoing problems that began at `since` or later, or whose start Apple does not give, then builds
/// published since, then what was logged since. The query is asked with the subject and build as a
/// title, as it would be about a confirmed story of no source.
std::vector<TrackerChange> trackerChanges(const TrackerAnswers& answers,
                                          const CompiledStoryQuery& wanted, Instant since);

}  // namespace kit
