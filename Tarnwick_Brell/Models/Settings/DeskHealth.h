#pragma once

#include <vector>

#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Settings/SettingRows.h"

namespace app {

/// What of the desktop and the computer the desk depends on, and what helps where it is missing.
/// Asks the session bus and waits a moment for its answer.
std::vector<SettingRow> healthFacts(const DeskStores& stores);

}  // namespace app
