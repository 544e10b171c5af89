#pragma once

#include <optional>

#include "NewsroomKit/Alerts/AlertPipeline.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// When the user wants to be told nothing, by the settings and this computer's clock.
kit::AlertQuiet quietOf(const Defaults& defaults);

/// Until when the user has asked for quiet; nothing when that is over.
std::optional<kit::Instant> quietUntil(const Defaults& defaults, kit::Instant now);
/// Nothing ends it. Throws StoreError.
void setQuietUntil(Defaults& defaults, std::optional<kit::Instant> until);

}  // namespace app
