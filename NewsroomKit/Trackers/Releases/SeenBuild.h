#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"

namespace kit {

/// A build in its time at the top of a platform's channel.
struct SeenBuild {
    std::string platform{};
    ReleaseChannel channel{};
    SoftwareRelease release{};
    Instant firstSeen{};
    std::optional<Instant> replacedAt{};  ///< when the desk saw another in its place

    bool operator==(const SeenBuild&) const = default;
};

/// As many of the last seen builds as panels look through.
inline constexpr std::size_t kMostBuilds = 500;

template <>
struct JSONFields<SeenBuild> {
    static constexpr auto fields = std::tuple{
        field("platform", &SeenBuild::platform),     field("channel", &SeenBuild::channel),
        field("release", &SeenBuild::release),       field("firstSeen", &SeenBuild::firstSeen),
        field("replacedAt", &SeenBuild::replacedAt),
    };
};

}  // namespace kit
