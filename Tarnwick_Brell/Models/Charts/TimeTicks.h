#pragma once

#include <vector>

#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "Tarnwick_Brell/Models/Charts/ChartRows.h"

namespace app {

/// The axis below a quote's points, which stand at `places`: hours of a day, days of a week,
/// weeks of a month, months of a year, so far apart that their labels find room.
std::vector<ChartTick> timeTicks(const kit::StockQuote& quote, const std::vector<double>& places);

}  // namespace app
