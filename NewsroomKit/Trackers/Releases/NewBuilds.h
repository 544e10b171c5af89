#pragma once

#include <map>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"

namespace kit {

struct NewBuild {
    PlatformRelease platform{};
    ReleaseChannel channel{};
    SoftwareRelease release{};

    std::string key() const;  ///< "iOS.beta"

    bool operator==(const NewBuild&) const = default;
};

/// Which builds are new since the last look.
struct NewBuilds {
    /// What is remembered between two looks: the build of each "platform.channel".
    using Known = std::map<std::string, std::string>;

    std::vector<NewBuild> announced{};
    Known known{};  ///< to be remembered instead

    /// Only a build that takes another's place is announced, be it an earlier one; the first
    /// one of a platform's channel is not.
    static NewBuilds look(Known known, const std::vector<PlatformRelease>& releases);

    bool operator==(const NewBuilds&) const = default;
};

/// What `platform` and `channel` are remembered under.
std::string buildKey(std::string_view platform, ReleaseChannel channel);

}  // namespace kit
