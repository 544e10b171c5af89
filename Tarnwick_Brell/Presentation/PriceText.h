#pragma once

#include <optional>

#include <QString>

/// Prices and their changes as the window words them: in the user's way to write numbers.
namespace app {

/// "1,234.50"
QString priceText(double price);

/// "+1.92", "−2.87", "0.00": with a sign, except for what rounds to nothing.
QString signedText(double amount);

/// "+0.70%". Nothing without something to measure the price against.
std::optional<QString> percentText(double price, std::optional<double> reference);

/// "+1.92 (+0.70%)"
std::optional<QString> changeText(double price, std::optional<double> reference);

/// -1, 0 or 1, as the sign of signedText.
int directionOf(double amount);

}  // namespace app
