#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

/// Settings that are the same on all of the user's computers.
namespace app {

/// The others belong to one computer: its screen, its network, its notifications, its secrets.
inline constexpr std::array kTravellingSettings{
    SettingKey::kRefreshMinutes, SettingKey::kStoryRetentionDays, SettingKey::kAlertServiceStatus,
    SettingKey::kAlertReleases,  SettingKey::kAlertStories,       SettingKey::kAlertSound,
    SettingKey::kFocusSymbol,    SettingKey::kQuoteRange,         SettingKey::kSigningDevices,
};

/// Their values, as far as they are set.
std::map<std::string, std::string> travellingSettings(const Defaults& defaults);

/// Records what has changed of them since the last time, in one transaction. Settings and library
/// are two files, so whoever writes the one may be killed before the other: each start of a desk
/// does this too. Throws StoreError.
void recordSettings(LocalStore& store, const std::map<std::string, std::string>& settings);

}  // namespace app
