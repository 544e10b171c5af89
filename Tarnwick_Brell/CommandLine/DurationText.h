#pragma once

#include <string>

#include "NewsroomKit/Records/Instant.h"

namespace cli {

/// "under a minute", "35 min", "2 h 5 min", "3 d 4 h".
std::string spanText(kit::Instant::duration span);

/// When something is, seen from now: "in 35 min", "now", "3 h ago", "in 19 d".
std::string distanceText(kit::Instant then, kit::Instant now);

}  // namespace cli
