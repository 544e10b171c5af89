#pragma once

#include <array>

#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

enum class SignalService { signing, updates, charts };

/// The row's raw value is the service's host.
template <>
inline constexpr std::array<EnumRow<SignalService>, 3> enumTable<SignalService>{{
    {SignalService::signing, "api.ipsw.me", "Firmware signing"},
    // Its certificate is of Apple's private authority, which systems do not know.
    {SignalService::updates, "gdmf.apple.com", "Update catalogue"},
    {SignalService::charts, "rss.marketingtools.apple.com", "App Store charts"},
}};

constexpr std::string_view hostOf(SignalService service) { return rawValue(service); }

}  // namespace kit
