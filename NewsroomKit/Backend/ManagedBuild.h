#pragma once

#include <string>
#include <string_view>

namespace kit {

/// The key of a managed version in parts: "AssetSets macOS 26.6.2 25G83". Of a key in another
/// form everything is the build.
struct ManagedBuild {
    std::string_view set{};
    std::string_view platform{};
    std::string_view version{};
    std::string_view build{};
};

/// The parts are those of `key`, which must outlive them.
inline ManagedBuild managedBuild(std::string_view key) {
    const auto set = key.find(' ');
    const auto platform = set == key.npos ? key.npos : key.find(' ', set + 1);
    const auto build = key.rfind(' ');
    if (platform == key.npos || build <= platform) return {.build = key};
    return {key.substr(0, set), key.substr(set + 1, platform - set - 1),
            key.substr(platform + 1, build - platform - 1), key.substr(build + 1)};
}

}  // namespace kit
