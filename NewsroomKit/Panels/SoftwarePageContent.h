#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/SoftwareContent.h"

namespace kit {

/// Which releases the page lists.
struct SoftwareFilter {
    std::optional<ReleaseChannel> channel{};
    std::string platform{};  ///< all without
    std::string major{};     ///< "27"; all without
    std::string words{};     ///< in version or build; any case

    bool operator==(const SoftwareFilter&) const = default;
};

/// What each platform runs, and every release that the desk has seen.
struct SoftwarePageContent {
    struct Card {
        PlatformRelease platform{};
        bool isNew = false;  ///< its current build is
        /// When the next beta usually comes, by the median of the times between earlier ones;
        /// needs five betas.
        std::optional<Instant> nextBeta{};
    };
    struct Release {
        SeenBuild build{};
        bool isNew = false;
        /// Since the one before of the same platform and channel.
        std::optional<Instant::duration> after{};
    };

    PanelCondition condition{};
    std::vector<Card> cards{};          ///< in the order of standsBefore()
    std::vector<Release> releases{};    ///< that the filter lets through, the last published first
    std::vector<std::string> majors{};  ///< of all releases, the highest first
};

SoftwarePageContent softwarePageContent(const CachedValue<std::vector<PlatformRelease>>& releases,
                                        const std::vector<SeenBuild>& builds,
                                        const SoftwareFilter& filter, Instant now);

/// "27" of "27.1.1".
std::string majorOf(const SoftwareRelease& release);

}  // namespace kit
