#include "NewsroomKit/Trackers/Signing/SigningNews.h"

#include <algorithm>
#include <chrono>

#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"

namespace kit {

namespace {

constexpr std::chrono::hours kTogether{1};
constexpr std::size_t kMostNamed = 3;

std::string systemOf(const SigningChange& change) {
    const bool isMac = change.device.find("Mac") != std::string::npos;
    const auto platform =
        isMac ? std::optional<std::string_view>("macOS") : platformOfFamily(change.device);
    return platform ? std::string(*platform) + " " + change.version : change.version;
}

/// "A, B and C", "A, B and 4 others".
std::string listed(const std::vector<std::string>& names) {
    const auto named = namedDevices(names.size());
    const auto others = names.size() - named;
    std::string text = names.front();
    for (std::size_t i = 1; i < named; ++i)
        text += (others == 0 && i + 1 == named ? " and " : ", ") + names[i];
    return others == 0 ? text : text + " and " + std::to_string(others) + " others";
}

}  // namespace

std::size_t namedDevices(std::size_t devices) {
    return devices <= kMostNamed ? devices : kMostNamed - 1;
}

std::string SigningNews::title() const {
    return system + " (" + build + ") is " + (isSigned ? "now" : "no longer") + " signed for " +
           listed(devices);
}

std::vector<SigningNews> signingNews(const std::vector<SigningChange>& changes) {
    std::vector<SigningNews> news;
    for (const auto& change : changes) {
        const auto system = systemOf(change);
        const auto& device = change.deviceName.empty() ? change.device : change.deviceName;
        const auto same = std::ranges::find_if(news, [&](const SigningNews& one) {
            const auto distance = change.seenAt - one.seenAt;
            return one.system == system && one.build == change.build &&
                   one.isSigned == change.isSigned && distance < kTogether && -distance < kTogether;
        });
        if (same == news.end()) {
            news.push_back({system, change.build, change.isSigned, change.seenAt, {device}});
        } else {
            // Models can share their name, and a build can come and go within the hour.
            const bool isNamed = std::ranges::find(same->devices, device) != same->devices.end();
            if (!isNamed) same->devices.push_back(device);
            same->seenAt = std::min(same->seenAt, change.seenAt);
        }
    }
    return news;
}

std::string titleOf(const OfferChange& change) {
    const auto& offer = change.offer;
    return std::string("Apple's update catalogue ") +
           (change.isOffered ? "now offers " : "no longer offers ") + offer.platform + " " +
           offer.version + " (" + offer.build + ")";
}

}  // namespace kit
