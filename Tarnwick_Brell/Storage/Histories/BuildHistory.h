#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// A build in its time at the top of a platform's channel.
struct SeenBuild {
    std::string platform{};
    kit::ReleaseChannel channel{};
    kit::SoftwareRelease release{};
    kit::Instant firstSeen{};
    std::optional<kit::Instant> replacedAt{};  ///< when the desk saw another in its place

    bool operator==(const SeenBuild&) const = default;
};

/// Every build that the desk has seen, for good. One that comes back is seen anew.
class BuildHistory {
public:
    explicit BuildHistory(Database& database) : database_(database) {}

    void note(const std::vector<kit::PlatformRelease>& releases, kit::Instant now);

    /// The last seen first.
    std::vector<SeenBuild> newest(std::size_t most);

private:
    void note(const std::string& platform, kit::ReleaseChannel channel,
              const kit::SoftwareRelease& release, kit::Instant now);

    Database& database_;
};

}  // namespace app

template <>
struct kit::JSONFields<app::SeenBuild> {
    using Seen = app::SeenBuild;
    static constexpr auto fields = std::tuple{
        field("platform", &Seen::platform),     field("channel", &Seen::channel),
        field("release", &Seen::release),       field("firstSeen", &Seen::firstSeen),
        field("replacedAt", &Seen::replacedAt),
    };
};
