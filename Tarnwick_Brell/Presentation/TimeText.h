#pragma once

#include <QString>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Presentation/Style.h"

/// Times, ages and durations in words. Days are those of the calendar in the style's zone. Plain
/// dates always have their year and plain times their zone.
namespace app {

/// How old something is, in one unit: "now", "4 min", "2 h", "Yesterday", "16 May",
/// "16 May 2025". A future time reads as "now".
QString ageText(kit::Instant then, kit::Instant now, const Style& style = Style::ofUser());

/// How far away something is: "just now", "4 min ago", "yesterday", "5 days ago", and of the
/// future "in 4 min", "tomorrow", "in 5 days".
QString agoText(kit::Instant then, kit::Instant now, const Style& style = Style::ofUser());

/// "today", "tomorrow", "in 5 days", "yesterday", "5 days ago".
QString daysAwayText(int days);

/// How long something lasts, in at most two units: "under a minute", "35 min", "2 h 5 min",
/// "3 d 4 h".
QString spanText(kit::Instant::duration span);

/// "14:32"; plain "14:32 CET".
QString clockText(kit::Instant then, const Style& style = Style::ofUser());

/// "14:32" on the same day, "Yesterday 14:32", "16 May 14:32", "16 May 2025 14:32"; plain
/// "2026-05-16 14:32 CET".
QString momentText(kit::Instant then, kit::Instant now, const Style& style = Style::ofUser());

/// "16 May 2025, 14:32 CET", for what is read elsewhere and later; plain "2025-05-16 14:32 CET".
QString wholeMomentText(kit::Instant then, const Style& style = Style::ofUser());

/// The same above what happened on that day: "Today", "Yesterday", "Tue 19 May".
QString dayHeadingText(kit::Instant day, kit::Instant now);

/// "Tue 19 May", with the year when it is another one; plain "2026-05-19".
QString dayText(kit::Instant then, kit::Instant now, const Style& style = Style::ofUser());

/// "16 May", with the year when it is another one; plain "2026-05-16".
QString shortDayText(kit::Instant then, kit::Instant now, const Style& style = Style::ofUser());

/// As shortDayText, for a day without a time, the same in every zone. Records write such a day as
/// its beginning in UTC or in New York, which is still that day in UTC.
QString namedDayText(kit::Instant day, kit::Instant now, const Style& style = Style::ofUser());

/// Whole days of the calendar from `now` to `then`: 0 today, 1 tomorrow, -1 yesterday.
int daysBetween(kit::Instant now, kit::Instant then, const Style& style = Style::ofUser());

}  // namespace app
