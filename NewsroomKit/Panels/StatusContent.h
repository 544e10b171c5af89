#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelCondition.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"

namespace kit {

/// How far back incidents count as recent.
inline constexpr std::chrono::days kRecentIncidents{14};

/// Whether Apple's services are up, the consumers' and the developers'. The two are two files, of
/// which one may be older than the other.
struct StatusContent {
    using Services = AppleServiceStatus::Services;

    struct Incident {
        std::string service{};
        ProblemLevel level = ProblemLevel::issue;
        std::string message{};
        std::optional<std::string> usersAffected{};
        std::optional<Instant> started{};
        std::optional<Instant::duration> lasted{};  ///< so far, or until it was over

        bool operator==(const Incident&) const = default;
    };
    struct Tally {
        std::size_t up = 0;
        std::size_t all = 0;
        std::optional<Instant> fetchedAt{};
        /// The file shows the services as they are now, not as they were when it could last be
        /// fetched.
        bool isCurrent = false;

        bool isUp() const { return up == all; }
        bool operator==(const Tally&) const = default;
    };

    PanelCondition condition{};  ///< of the consumers' file
    std::optional<Tally> consumer{};
    std::optional<Tally> developer{};
    std::vector<Incident> ongoing{};  ///< one a service, the consumers' first
    std::vector<Incident> recent{};   ///< those that are over, the last begun first

    /// Every service of both files is up now.
    bool isAllUp() const;
};

StatusContent statusContent(const CachedValue<StatusContent::Services>& consumer,
                            const CachedValue<StatusContent::Services>& developer, Instant now);

StatusContent::Incident incidentOf(const AppleServiceStatus::Report& report, Instant now);

}  // namespace kit
