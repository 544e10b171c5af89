#pragma once

#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"

namespace cli {

/// Price, change of the day, a chart of the range, then the figures.
void printQuote(Output& out, const kit::StockQuote& quote, kit::Instant now);

}  // namespace cli
