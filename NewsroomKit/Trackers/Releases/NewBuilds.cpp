#include "NewsroomKit/Trackers/Releases/NewBuilds.h"

namespace kit {

std::string buildKey(std::string_view platform, ReleaseChannel channel) {
    return std::string(platform) + "." + std::string(rawValue(channel));
}

std::string NewBuild::key() const { return buildKey(platform.platform, channel); }

NewBuilds NewBuilds::detect(Known known, const std::vector<PlatformRelease>& releases) {
    const bool isFirstList = known.empty();
    NewBuilds result{.known = std::move(known)};
    for (const auto& platform : releases) {
        for (const auto channel : {ReleaseChannel::general, ReleaseChannel::beta}) {
            const auto& release = platform.release(channel);
            if (!release) continue;
            const auto [entry, isNewKey] =
                result.known.try_emplace(buildKey(platform.platform, channel), release->build);
            if (isNewKey || entry->second == release->build) continue;
            entry->second = release->build;
            if (!isFirstList) result.announced.push_back({platform, channel, *release});
        }
    }
    return result;
}

}  // namespace kit
