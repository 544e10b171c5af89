#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Alerts/AlertPipeline.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// When the user wants to be told nothing, by the settings and this computer's clock.
kit::AlertQuiet quietOf(const Defaults& defaults);

/// Which weekdays the text of the setting names, Monday first.
std::array<bool, 7> weekdaysNamed(std::string_view text);
/// "mon, tue"
std::string weekdaysText(const std::array<bool, 7>& days);

/// Until when the user has asked for quiet; nothing when that is over.
std::optional<kit::Instant> quietUntil(const Defaults& defaults, kit::Instant now);
/// Nothing ends it. Throws StoreError.
void setQuietUntil(Defaults& defaults, std::optional<kit::Instant> until);

}  // namespace app
