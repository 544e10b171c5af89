#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Trackers/PlatformRelease.h"
#include "Tarnwick_Brell/Storage/Database.h"

namespace desk {

/// A build in its time at the top of a platform's channel.
struct SeenBuild {
    std::string platform{};
    newsroom::ReleaseChannel channel{};
    newsroom::SoftwareRelease release{};
    newsroom::Instant firstSeen{};
    std::optional<newsroom::Instant> replacedAt{};  ///< when the desk saw another in its place

    bool operator==(const SeenBuild&) const = default;
};

/// Every build that the desk has seen, for good. One that comes back is seen anew.
class BuildHistory {
public:
    explicit BuildHistory(Database& database) : database_(database) {}

    void note(const std::vector<newsroom::PlatformRelease>& releases, newsroom::Instant now);

    /// The last seen first.
    std::vector<SeenBuild> newest(std::size_t most);

private:
    void note(const std::string& platform, newsroom::ReleaseChannel channel,
              const newsroom::SoftwareRelease& release, newsroom::Instant now);

    Database& database_;
};

}  // namespace desk

template <>
struct newsroom::RecordShape<desk::SeenBuild> {
    using Seen = desk::SeenBuild;
    static constexpr auto fields = std::tuple{
        field("platform", &Seen::platform),     field("channel", &Seen::channel),
        field("release", &Seen::release),       field("firstSeen", &Seen::firstSeen),
        field("replacedAt", &Seen::replacedAt),
    };
};
