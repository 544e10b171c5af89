#include "NewsroomKit/Trackers/Signing/SigningStatus.h"

#include "NewsroomKit/Trackers/Updates/CatalogueDay.h"

namespace kit {

namespace {

/// "2026-08-17T00:00:00Z": no fraction, and a zone.
std::optional<Instant> internetDateTime(std::string_view text) {
    constexpr std::size_t letter = 10, zone = 19;
    const bool hasForm = text.size() > zone && text[letter] == 'T' &&
                         std::string_view("Z+-").find(text[zone]) != std::string_view::npos;
    return hasForm ? parseISO8601(text) : std::nullopt;
}

std::optional<Instant> releaseOf(const std::optional<std::string>& text) {
    if (!text) return std::nullopt;
    const auto moment = internetDateTime(*text);
    return moment ? moment : catalogueDay(*text);
}

}  // namespace

SigningStatus SigningStatus::parse(std::string_view body) {
    auto device = decode<Device>(parseJSON(body));
    SigningStatus status{.name = std::move(device.name)};
    status.builds.reserve(device.firmwares.size());
    for (auto& firmware : device.firmwares) {
        status.builds.push_back({.version = std::move(firmware.version),
                                 .build = std::move(firmware.buildid),
                                 .isSigned = firmware.isSigned,
                                 .released = releaseOf(firmware.releasedate)});
    }
    return status;
}

}  // namespace kit
