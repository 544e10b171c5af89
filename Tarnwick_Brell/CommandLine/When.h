#pragma once

#include <string_view>

#include "NewsroomKit/Records/Instant.h"

namespace brell {

/// A moment as people type it: "30min", "6h", "2d", "1w" ago, a day ("2026-11-02", in UTC)
/// or an ISO 8601 time. Throws WrongUsage.
newsroom::Instant parseWhen(std::string_view text, newsroom::Instant now);

}  // namespace brell
