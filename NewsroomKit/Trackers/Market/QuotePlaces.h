#pragma once

#include <vector>

#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit {

/// Whether the points can stand where their times are between the session's open and close:
/// those of one day, in their order, all of them inside.
bool isWithinSession(const StockQuote& quote);

/// Where the points stand on a chart, from 0 at the left to 1 at the right. A day's points
/// stand where their times are in the session; points of several sessions follow each other
/// without the nights between. A point alone stands in the middle.
std::vector<double> pointPlaces(const StockQuote& quote);

}  // namespace kit
