#include "Tarnwick_Brell/Trackers/ListDoubts.h"

#include <algorithm>
#include <set>
#include <string>

namespace app {

namespace {

bool hasRelease(const PlatformRelease& platform) { return platform.current || platform.beta; }

template <class T>
std::vector<T> without(std::vector<T> list, const std::set<std::string>& names,
                       std::string T::* name) {
    std::erase_if(list, [&](const T& item) { return names.contains(item.*name); });
    return list;
}

}  // namespace

bool saysNothing(const std::vector<PlatformRelease>& releases) {
    return std::ranges::none_of(releases, hasRelease);
}

AppleServiceStatus::Services vanished(const AppleServiceStatus::Services& before,
                                      const AppleServiceStatus::Services& latest) {
    std::set<std::string> names;
    for (const auto& service : latest) names.insert(service.name);
    return without(before, names, &AppleServiceStatus::Service::name);
}

std::vector<PlatformRelease> vanished(const std::vector<PlatformRelease>& before,
                                      const std::vector<PlatformRelease>& latest) {
    auto gone = before;
    for (auto& platform : gone) {
        const auto now = std::ranges::find(latest, platform.platform, &PlatformRelease::platform);
        if (now == latest.end()) continue;
        if (now->current) platform.current.reset();
        if (now->beta) platform.beta.reset();
    }
    std::erase_if(gone, [](const PlatformRelease& platform) { return !hasRelease(platform); });
    return gone;
}

std::vector<AppleCalendarEvent> vanished(const std::vector<AppleCalendarEvent>& before,
                                         const std::vector<AppleCalendarEvent>& latest) {
    return latest.empty() ? before : std::vector<AppleCalendarEvent>();
}

std::vector<PlatformRelease> completed(std::vector<PlatformRelease> list,
                                       const std::vector<PlatformRelease>& lacking) {
    for (const auto& platform : lacking) {
        const auto place = std::ranges::find(list, platform.platform, &PlatformRelease::platform);
        if (place == list.end()) {
            list.push_back(platform);
            continue;
        }
        if (platform.current) place->current = platform.current;
        if (platform.beta) place->beta = platform.beta;
    }
    std::ranges::sort(list, kit::standsBefore, &PlatformRelease::platform);
    return list;
}

}  // namespace app
