#pragma once

#include <optional>
#include <string>

#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"

namespace cli {

/// Price, change of the day, a chart of the range, then the figures.
void printQuote(Output& out, const kit::StockQuote& quote, kit::Instant now);

/// "1,234.50"
std::string amountText(double amount);

/// "+1.20 (+0.38 %)", "-2.87 (-0.90 %)", "0.00 (0.00 %)". Nothing without something to
/// measure the price against.
std::optional<std::string> changeText(double price, std::optional<double> reference);
std::string percentText(double percent);

/// "open", "closed", "before hours", "after hours", or the service's own word.
std::string marketText(std::string_view marketState);

}  // namespace cli
