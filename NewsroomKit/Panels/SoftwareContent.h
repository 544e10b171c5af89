#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelCondition.h"
#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"
#include "NewsroomKit/Trackers/Releases/SeenBuild.h"

namespace kit {

using Platforms = std::vector<std::string>;

/// Whether a build was published within the last three days.
bool isNewBuild(const SoftwareRelease& release, Instant now);

/// The builds that the panel's platforms have now.
struct SoftwareContent {
    struct Row {
        PlatformRelease platform{};
        std::optional<Instant> latest{};  ///< when the later of its builds was published
        bool isNew = false;               ///< one of its builds is
    };

    PanelCondition condition{};
    std::vector<Row> rows{};  ///< in the panel's order
};

SoftwareContent softwareContent(const CachedValue<std::vector<PlatformRelease>>& releases,
                                const Platforms& platforms, Instant now);

/// Every release and beta of the panel's platforms that the desk has seen.
struct ReleasesContent {
    struct Row {
        SeenBuild build{};
        bool isNew = false;
    };

    PanelCondition condition{};
    std::vector<Row> rows{};  ///< the last published first
};

ReleasesContent releasesContent(const CachedValue<std::vector<PlatformRelease>>& releases,
                                const std::vector<SeenBuild>& builds, const Platforms& platforms,
                                Instant now);

}  // namespace kit
