#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"

namespace kit {

/// The events that one of the terms names, or all when no term names anything; the earliest
/// first.
std::vector<AppleCalendarEvent> namedEvents(const std::vector<AppleCalendarEvent>& events,
                                            const std::vector<std::string>& terms);

/// The same, but anniversaries only where a term names them: what stands beside prices.
std::vector<AppleCalendarEvent> markedEvents(const std::vector<AppleCalendarEvent>& events,
                                             const std::vector<std::string>& terms);

}  // namespace kit
