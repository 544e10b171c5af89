#pragma once

#include <optional>
#include <vector>

#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"

namespace kit {

/// A new number one, and what enters the top ten: an app that moves to and fro counts once a day.
std::vector<Signal> signalsOf(AppStoreCharts::Kind chart,
                              const std::optional<std::vector<ChartEntry>>& before,
                              const std::vector<ChartEntry>& after, Instant now);

}  // namespace kit
