#pragma once

#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Shell/AppEnvironment.h"

namespace desk {

/// What the window shows of an environment, which must outlive it.
WindowModel::Stores windowStores(AppEnvironment& environment, newsroom::FeedClient::Clock clock);

}  // namespace desk
