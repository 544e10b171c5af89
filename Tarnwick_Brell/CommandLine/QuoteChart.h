#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace cli {

/// A quote's points as lines of text, at most `width` columns wide: prices at the left, the
/// curve in Braille patterns (two by four dots a character), times below. A day's curve ends
/// where the day has got to, and the previous close is a dotted line through it. Empty when
/// there are fewer than two prices or the terminal is too narrow.
std::vector<std::string> quoteChart(kit::StockQuote quote, std::size_t width);

}  // namespace cli
