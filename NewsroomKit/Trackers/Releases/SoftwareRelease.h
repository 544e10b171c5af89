#pragma once

#include <optional>
#include <string>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

enum class ReleaseChannel { general, beta };

template <>
inline constexpr std::array<EnumRow<ReleaseChannel>, 2> enumTable<ReleaseChannel>{{
    {ReleaseChannel::general, "public", "Public"},
    {ReleaseChannel::beta, "beta", "Beta"},
}};

/// One build of one channel of one platform.
struct SoftwareRelease {
    std::string version{};
    std::string stage{};  ///< as the service names it
    std::string build{};
    std::string title{};
    Instant published{};
    std::string url{};  ///< the release's page
    std::optional<std::string> artwork{};

    bool operator==(const SoftwareRelease&) const = default;
};

template <>
struct JSONFields<SoftwareRelease> {
    static constexpr auto fields = std::tuple{
        field("version", &SoftwareRelease::version),     field("stage", &SoftwareRelease::stage),
        field("build", &SoftwareRelease::build),         field("title", &SoftwareRelease::title),
        field("published", &SoftwareRelease::published), field("url", &SoftwareRelease::url),
        field("artwork", &SoftwareRelease::artwork),
    };
};

}  // namespace kit
