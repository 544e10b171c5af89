#pragma once

#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Presentation/Style.h"

namespace app {

/// The beginnings of the last `count` days of the calendar, today's the last, and the end of today:
/// the days have 23 to 25 hours where clocks are changed.
std::vector<kit::Instant> lastDays(kit::Instant now, int count,
                                   const Style& style = Style::ofUser());

}  // namespace app
