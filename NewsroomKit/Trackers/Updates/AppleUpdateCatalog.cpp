#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"

#include <algorithm>

#include "NewsroomKit/Trackers/Updates/CatalogueDay.h"
#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"
#include "NewsroomKit/Trackers/Signing/VersionOrder.h"
#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"

namespace kit {

namespace {

using Devices = std::vector<std::string>;

std::string_view platformOf(std::string_view set, std::string_view device) {
    if (set == "macOS" || set == "visionOS") return set;
    return platformOfFamily(device).value_or(set);
}

/// The devices by platform, in the order in which the platforms first occur.
std::vector<std::pair<std::string_view, Devices>> sorted(std::string_view set,
                                                         const Devices& devices) {
    std::vector<std::pair<std::string_view, Devices>> platforms;
    for (const auto& device : devices) {
        const auto name = platformOf(set, device);
        auto place =
            std::ranges::find(platforms, name, [](const auto& entry) { return entry.first; });
        if (place == platforms.end()) place = platforms.insert(place, {name, {}});
        place->second.push_back(device);
    }
    return platforms;
}

}  // namespace

bool AppleUpdateCatalog::standsAhead(const UpdateOffer& one, const UpdateOffer& other) {
    if (one.posted != other.posted) return one.posted > other.posted;
    const auto order = compareVersions(one.version, other.version);
    if (order != 0) return order > 0;
    return standsBefore(one.platform, other.platform);
}

std::vector<UpdateOffer> AppleUpdateCatalog::parse(std::string_view body) {
    return offers(decode<Feed>(parseJSON(body)));
}

std::vector<UpdateOffer> AppleUpdateCatalog::offers(const Feed& feed) {
    std::vector<UpdateOffer> offers;
    // 1. Set by set, asset by asset.
    for (const auto& [set, assets] : feed.publicAssetSets) {
        for (const auto& asset : assets) {
            // 2. What has no day of posting is no offer.
            const auto posted = catalogueDay(asset.postingDate);
            if (!posted) continue;
            const auto expires =
                asset.expirationDate ? catalogueDay(*asset.expirationDate) : std::nullopt;
            // 3., 4. One offer for each platform. The first of equal models counts.
            for (const auto& [platform, devices] : sorted(set, asset.supportedDevices)) {
                const auto newest = std::ranges::max_element(
                    devices, {}, [](const std::string& device) { return modelNumber(device); });
                offers.push_back({.platform = std::string(platform),
                                  .version = asset.version,
                                  .build = asset.build,
                                  .posted = *posted,
                                  .expires = expires,
                                  .deviceCount = static_cast<std::int64_t>(devices.size()),
                                  .newestDevice = *newest});
            }
        }
    }
    // 5. The latest first.
    std::ranges::stable_sort(offers, standsAhead);
    return offers;
}

}  // namespace kit
