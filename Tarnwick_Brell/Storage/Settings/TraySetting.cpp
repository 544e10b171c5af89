#include "Tarnwick_Brell/Storage/Settings/TraySetting.h"

#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

CloseToTray closeToTray(const Defaults& defaults) {
    const auto value = defaults.text(kCloseToTray);
    if (value == "yes") return CloseToTray::yes;
    return value == "no" ? CloseToTray::no : CloseToTray::ask;
}

}  // namespace app
