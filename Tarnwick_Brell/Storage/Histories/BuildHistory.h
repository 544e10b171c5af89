#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Releases/SeenBuild.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

using kit::SeenBuild;

/// Every build that the desk has seen, kept permanently. A build that returns gets a new entry.
class BuildHistory {
public:
    explicit BuildHistory(Database& database) : database_(database) {}

    void record(const std::vector<kit::PlatformRelease>& releases, kit::Instant now);

    /// The newest entries first.
    std::vector<SeenBuild> newest(std::size_t most);

private:
    void record(const std::string& platform, kit::ReleaseChannel channel,
                const kit::SoftwareRelease& release, kit::Instant now);

    Database& database_;
};

}  // namespace app
