#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace kit {

namespace {

constexpr std::array<std::string_view, 6> kKnownPlatforms{"iOS",     "iPadOS", "macOS",
                                                          "watchOS", "tvOS",   "visionOS"};

/// All unknown ones share the rank behind the last.
auto rank(std::string_view platform) {
    return std::ranges::find(kKnownPlatforms, platform) - kKnownPlatforms.begin();
}

}  // namespace

bool standsBefore(std::string_view platform, std::string_view other) {
    return std::tuple(rank(platform), platform) < std::tuple(rank(other), other);
}

}  // namespace kit
