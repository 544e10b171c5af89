#pragma once

#include <string>

#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

namespace cli {

/// Shows a symbol beside others, `others` with commas between, in per cent from the beginning of
/// the range. Throws WrongUsage and WorkFailed.
int runComparison(Session& session, bool isStored, kit::QuoteRange range, const std::string& symbol,
                  const std::string& others);

}  // namespace cli
