#pragma once

#include <vector>

#include "NewsroomKit/Alerts/AlertEvent.h"
#include "NewsroomKit/Queries/StoryQuery.h"

namespace app {

class LocalStore;

/// The stories of the wire that have come since then, in the order in which they came; those that
/// the query matches if there is one. Stories of the first fetch of a source count as news at the
/// time of their publication, as they would have come had the desk been there.
std::vector<kit::AlertEvent> pastStories(LocalStore& store, kit::Instant since,
                                         const kit::StoryQuery* query = nullptr);

/// What has been logged since then, in that order.
std::vector<kit::AlertEvent> pastSignals(LocalStore& store, kit::Instant since);

}  // namespace app
