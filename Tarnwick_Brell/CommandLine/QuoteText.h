#pragma once

#include <optional>
#include <string>

#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"

namespace cli {

/// Price, change of the day, a chart of the range, then the figures.
void printQuote(Output& out, const kit::StockQuote& quote, kit::Instant now);

/// "open", "closed", "before hours", "after hours", or the service's own word.
std::string marketText(std::string_view marketState);

}  // namespace cli
