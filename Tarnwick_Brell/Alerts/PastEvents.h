#pragma once

#include <vector>

#include "NewsroomKit/Alerts/AlertEvent.h"
#include "NewsroomKit/Alerts/AlertRule.h"
#include "NewsroomKit/Queries/StoryQuery.h"

namespace app {

class LocalStore;

/// What has come since then that the trigger could match, in the order in which it came: stories of
/// the wire or what has been logged. Stories of the first fetch of a source count as news at the
/// time of their publication, as they would have come had the desk been there. `beat` is the query
/// of the trigger's beat. Prices leave no events.
std::vector<kit::AlertEvent> pastEvents(LocalStore& store, const kit::AlertTrigger& trigger,
                                        const kit::StoryQuery* beat, kit::Instant since);

}  // namespace app
