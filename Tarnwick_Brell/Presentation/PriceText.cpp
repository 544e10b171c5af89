#include "Tarnwick_Brell/Presentation/PriceText.h"

#include <cmath>

namespace app {

namespace {

constexpr int kDecimals = 2;
constexpr double kLeastShown = 0.005;

}  // namespace

QString priceText(double price, const Style& style) {
    return style.locale.toString(price, 'f', kDecimals);
}

int directionOf(double amount) {
    if (!(std::abs(amount) >= kLeastShown)) return 0;
    return amount > 0 ? 1 : -1;
}

QString signedText(double amount, const Style& style) {
    const auto direction = directionOf(amount);
    if (direction == 0) return priceText(0, style);
    return (direction > 0 ? u'+' : QChar(u'\u2212')) + priceText(std::abs(amount), style);
}

QString percentText(double percent, const Style& style) {
    return signedText(percent, style) + style.locale.percent();
}

QString changeText(const kit::PriceChange& change, const Style& style) {
    return signedText(change.amount, style) + QStringLiteral(" (") +
           percentText(change.percent, style) + u')';
}

}  // namespace app
