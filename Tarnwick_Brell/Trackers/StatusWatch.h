#pragma once

#include <vector>

#include "NewsroomKit/Panels/ServiceHistory.h"
#include "Tarnwick_Brell/Storage/Tables/DeskState.h"

namespace app {

class LocalStore;

/// When the desk has watched Apple's status files, the earliest first: without it nobody could tell
/// a day without incidents from a day on which the desk was off.
std::vector<kit::WatchedSpan> watchedSpans(DeskState& state, kit::StatusFeed audience);

/// A good answer came now.
void extendWatch(DeskState& state, kit::StatusFeed audience, kit::Instant now);

/// What the desk has seen of Apple's services, for pages.
kit::StatusHistory loadStatusHistory(LocalStore& store);

}  // namespace app
