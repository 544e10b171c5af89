#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Pages/PageSummary.h"
#include "NewsroomKit/Pages/PageWatch.h"
#include "NewsroomKit/Signals/Signal.h"

namespace kit {

/// What one look at a watched page has to tell: that it changed, that it went back to an earlier
/// text, or that it can't be read any more. Nothing most of the time.
std::optional<Signal> signalOf(const PageOutcome& outcome, const PageWatchState& state,
                               std::string_view name, std::string_view address, Instant now);

}  // namespace kit
