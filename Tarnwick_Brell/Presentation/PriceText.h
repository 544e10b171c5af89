#pragma once

#include <QString>

#include "NewsroomKit/Trackers/Market/PriceChange.h"
#include "Tarnwick_Brell/Presentation/Style.h"

/// Prices and their changes, in the style's way to write numbers.
namespace app {

/// "1,234.50"
QString priceText(double price, const Style& style = Style::ofUser());

/// "+1.92", "−2.87", and "0.00" for what rounds to nothing.
QString signedText(double amount, const Style& style = Style::ofUser());

/// "+0.70%"
QString percentText(double percent, const Style& style = Style::ofUser());

/// "+1.92 (+0.70%)"
QString changeText(const kit::PriceChange& change, const Style& style = Style::ofUser());

/// -1, 0 or 1, as the sign of signedText.
int directionOf(double amount);

}  // namespace app
