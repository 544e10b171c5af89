#pragma once

#include <string_view>

#include "NewsroomKit/Records/Instant.h"

namespace cli {

/// Parses a time argument: "30min", "6h", "2d", "1w" ago, a day ("2026-11-02") or an ISO 8601
/// time, both in the local zone unless the time names its own. Throws WrongUsage.
kit::Instant parseTimeArgument(std::string_view text, kit::Instant now);

}  // namespace cli
