#pragma once

#include <vector>

#include "NewsroomKit/Trackers/StockQuote.h"
#include "Tarnwick_Brell/Models/Charts/ChartRows.h"

namespace desk {

/// The axis below a quote's points, which stand at `places`: hours of a day, days of a week,
/// weeks of a month, months of a year, so far apart that their labels find room.
std::vector<ChartTick> timeTicks(const newsroom::StockQuote& quote,
                                 const std::vector<double>& places);

}  // namespace desk
