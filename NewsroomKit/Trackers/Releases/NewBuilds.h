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

/// The builds that are new in the latest list of releases.
struct NewBuilds {
    /// The build of each "platform.channel", to be kept between two calls.
    using Known = std::map<std::string, std::string>;

    std::vector<NewBuild> announced{};
    Known known{};  ///< to be kept from now on

    /// A build is announced when it replaces another one, even a later one. The first build of a
    /// platform's channel is not.
    static NewBuilds detect(Known known, const std::vector<PlatformRelease>& releases);

    bool operator==(const NewBuilds&) const = default;
};

/// The key of a platform's channel among the known builds.
std::string buildKey(std::string_view platform, ReleaseChannel channel);

}  // namespace kit
