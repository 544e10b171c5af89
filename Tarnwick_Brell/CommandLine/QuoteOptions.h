#pragma once

#include <string>

#include "NewsroomKit/Trackers/Market/StockQuote.h"

/// What the commands about prices are given.
namespace cli {

/// A symbol as services know it, in capital letters. Throws WrongUsage when it can't be one.
std::string knownSymbol(std::string typed);

/// Throws WrongUsage.
kit::QuoteRange rangeNamed(const std::string& name);

}  // namespace cli
