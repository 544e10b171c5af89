#include "Tarnwick_Brell/Trackers/ListDoubts.h"

#include <algorithm>
#include <set>
#include <string>

namespace desk {

namespace {

bool hasRelease(const PlatformRelease& platform) { return platform.current || platform.beta; }

template <class T>
std::vector<T> without(std::vector<T> list, const std::set<std::string>& names,
                       std::string T::*name) {
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
    std::set<std::string> names;
    for (const auto& platform : latest) {
        if (hasRelease(platform)) names.insert(platform.platform);
    }
    auto gone = without(before, names, &PlatformRelease::platform);
    std::erase_if(gone, [](const PlatformRelease& platform) { return !hasRelease(platform); });
    return gone;
}

std::vector<AppleCalendarEvent> vanished(const std::vector<AppleCalendarEvent>& before,
                                         const std::vector<AppleCalendarEvent>& latest) {
    return latest.empty() ? before : std::vector<AppleCalendarEvent>();
}

std::vector<BoardQuote> vanished(const std::vector<BoardQuote>&, const std::vector<BoardQuote>&) {
    return {};
}

std::vector<PlatformRelease> completed(std::vector<PlatformRelease> list,
                                       const std::vector<PlatformRelease>& lacking) {
    for (const auto& platform : lacking) {
        std::erase_if(list, [&](const auto& empty) { return empty.platform == platform.platform; });
        list.push_back(platform);
    }
    std::ranges::sort(list, newsroom::standsBefore, &PlatformRelease::platform);
    return list;
}

}  // namespace desk
