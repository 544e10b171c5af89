#include "Tarnwick_Brell/Trackers/RemovalConfirmation.h"

#include <algorithm>

namespace app {

using kit::AppleCalendarEvent;
using kit::AppleServiceStatus;
using kit::ChartEntry;
using kit::PlatformRelease;
using kit::SignedBuild;
using kit::SigningStatus;
using kit::UpdateOffer;

namespace {

/// Whether two answers mean the same item, whatever has changed about it.
bool isSame(const AppleServiceStatus::Service& one, const AppleServiceStatus::Service& other) {
    return one.name == other.name;
}

bool isSame(const SignedBuild& one, const SignedBuild& other) {
    return one.build == other.build && one.version == other.version;
}

bool isSame(const UpdateOffer& one, const UpdateOffer& other) {
    return one.build == other.build && one.version == other.version &&
           one.platform == other.platform;
}

template <class Items, class Item>
auto findIn(Items& items, const Item& wanted) {
    return std::ranges::find_if(items, [&](const Item& item) { return isSame(item, wanted); });
}

template <class T>
std::optional<std::vector<T>> withMissing(const std::vector<T>& before,
                                          const std::vector<T>& latest) {
    auto complete = latest;
    for (const auto& item : before) {
        if (findIn(latest, item) == latest.end()) complete.push_back(item);
    }
    if (complete.size() == latest.size()) return std::nullopt;
    return complete;
}

bool isSigned(const SigningStatus& status, const SignedBuild& build) {
    return std::ranges::any_of(
        status.builds, [&](const auto& other) { return other.isSigned && isSame(build, other); });
}

}  // namespace

std::optional<AppleServiceStatus::Services> carryOverMissing(
    const AppleServiceStatus::Services& before, const AppleServiceStatus::Services& latest) {
    return withMissing(before, latest);
}

std::optional<std::vector<PlatformRelease>> carryOverMissing(
    const std::vector<PlatformRelease>& before, const std::vector<PlatformRelease>& latest) {
    auto complete = latest;
    for (const auto& platform : before) {
        // Platforms without any release need not come back.
        if (!platform.current && !platform.beta) continue;
        const auto now = std::ranges::find(complete, platform.platform, &PlatformRelease::platform);
        if (now == complete.end()) {
            complete.push_back(platform);
            continue;
        }
        if (!now->current) now->current = platform.current;
        if (!now->beta) now->beta = platform.beta;
    }
    if (complete == latest) return std::nullopt;
    std::ranges::sort(complete, kit::standsBefore, &PlatformRelease::platform);
    return complete;
}

std::optional<std::vector<AppleCalendarEvent>> carryOverMissing(
    const std::vector<AppleCalendarEvent>& before, const std::vector<AppleCalendarEvent>& latest) {
    return latest.empty() && !before.empty() ? std::optional(before) : std::nullopt;
}

std::optional<SigningStatus> carryOverMissing(const SigningStatus& before,
                                              const SigningStatus& latest) {
    auto complete = latest;
    auto place = complete.builds.begin();
    for (const auto& build : before.builds) {
        auto now = findIn(complete.builds, build);
        if (now == complete.builds.end()) {
            now = complete.builds.insert(place, build);
        } else if (build.isSigned && !isSigned(latest, build)) {
            // Some builds are listed twice: they are signed when one listing says so.
            now->isSigned = true;
        }
        // A missing build returns behind the one that it followed.
        place = now + 1;
    }
    if (complete == latest) return std::nullopt;
    return complete;
}

std::optional<std::vector<UpdateOffer>> carryOverMissing(const std::vector<UpdateOffer>& before,
                                                         const std::vector<UpdateOffer>& latest) {
    auto complete = withMissing(before, latest);
    if (complete) std::ranges::stable_sort(*complete, kit::AppleUpdateCatalog::standsAhead);
    return complete;
}

std::optional<std::vector<ChartEntry>> carryOverMissing(const std::vector<ChartEntry>& before,
                                                        const std::vector<ChartEntry>& latest) {
    return latest.size() < before.size() ? std::optional(before) : std::nullopt;
}

}  // namespace app
