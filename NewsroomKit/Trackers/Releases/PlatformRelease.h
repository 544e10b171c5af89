#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Trackers/Releases/SoftwareRelease.h"

namespace kit {

/// What a platform runs now. Either channel may be missing.
struct PlatformRelease {
    std::string platform{};
    std::optional<SoftwareRelease> current{};  ///< of the public channel
    std::optional<SoftwareRelease> beta{};

    const std::optional<SoftwareRelease>& release(ReleaseChannel channel) const {
        return channel == ReleaseChannel::general ? current : beta;
    }

    bool operator==(const PlatformRelease&) const = default;
};

/// The order in which people expect platforms: iOS, iPadOS, macOS, watchOS, tvOS, visionOS,
/// then all others by name.
bool standsBefore(std::string_view platform, std::string_view other);

template <>
struct JSONFields<PlatformRelease> {
    static constexpr auto fields = std::tuple{
        field("platform", &PlatformRelease::platform),
        field("current", &PlatformRelease::current),
        field("beta", &PlatformRelease::beta),
    };
};

}  // namespace kit
