#pragma once

#include <array>

#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

enum class TrackerHost { signing, updates, charts };

/// The row's raw value is the service's host.
template <>
inline constexpr std::array<EnumRow<TrackerHost>, 3> enumTable<TrackerHost>{{
    {TrackerHost::signing, "api.ipsw.me", "Firmware signing"},
    // Its certificate is of Apple's private authority, which systems do not know.
    {TrackerHost::updates, "gdmf.apple.com", "Update catalogue"},
    {TrackerHost::charts, "rss.marketingtools.apple.com", "App Store charts"},
}};

constexpr std::string_view hostOf(TrackerHost service) { return rawValue(service); }

}  // namespace kit
