#pragma once

#include <optional>

#include <QString>

#include "NewsroomKit/Records/Instant.h"

/// Times as the window words them: in the user's zone, language and way to write hours.
namespace app {

/// How old something is, in one unit: "now", "4 min", "2 h", "Yesterday", "16 May",
/// "16 May 2025". A time to come reads as "now".
QString ageText(kit::Instant then, kit::Instant now);

/// "4 min ago", "Yesterday", "on 16 May": the same inside a sentence.
QString agoText(kit::Instant then, kit::Instant now);

/// How long something lasts, in at most two units: "under a minute", "35 min", "2 h 5 min",
/// "3 d 4 h".
QString spanText(kit::Instant::duration span);

/// "14:32"
QString clockText(kit::Instant then);

/// "14:32" on the same day, "Yesterday 14:32", "16 May 14:32", "16 May 2025 14:32".
QString momentText(kit::Instant then, kit::Instant now);

/// "Tue 19 May", with the year when it is another one.
QString dayText(kit::Instant then, kit::Instant now);

/// "16 May", with the year when it is another one.
QString shortDayText(kit::Instant then, kit::Instant now);

/// "16 May" for a day without a time, which is written as its beginning in UTC: the same day in
/// every zone. With the year when it is another one.
QString namedDayText(kit::Instant day, kit::Instant now);

/// Whole days of the calendar from `now` to `then`: 0 today, 1 tomorrow, -1 yesterday.
int daysBetween(kit::Instant now, kit::Instant then);

}  // namespace app
