#pragma once

#include <string_view>

namespace app {

class Defaults;

/// Whether closing the window leaves the desk running in the tray.
enum class CloseToTray { ask, yes, no };

inline constexpr std::string_view kCloseToTray = "closeToTray";

CloseToTray closeToTray(const Defaults& defaults);

}  // namespace app
