#pragma once

#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Shell/AppEnvironment.h"

namespace app {

/// What the window shows of an environment, which must outlive it.
WindowModel::Stores windowStores(AppEnvironment& environment, kit::Clock clock);

}  // namespace app
