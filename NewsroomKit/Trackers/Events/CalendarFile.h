#pragma once

#include <string>

#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"

namespace kit {

/// The event as a file that calendars read (RFC 5545). An event with a time is a moment in UTC; an
/// expected date or an anniversary takes its whole day, whose date the caller's calendar knows
/// ("20261126").
std::string calendarFile(const AppleCalendarEvent& event, const std::string& day, Instant now);

/// Whether only the day of the event is known.
bool isWholeDay(const AppleCalendarEvent& event);

}  // namespace kit
