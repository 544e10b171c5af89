#include "Tarnwick_Brell/Presentation/PriceText.h"

#include <cmath>

#include <QLocale>

namespace app {

namespace {

constexpr int kDecimals = 2;
constexpr double kLeastShown = 0.005;

bool canMeasure(double price, std::optional<double> reference) {
    return reference && *reference != 0 && std::isfinite((price - *reference) / *reference * 100);
}

}  // namespace

QString priceText(double price) { return QLocale().toString(price, 'f', kDecimals); }

int directionOf(double amount) {
    if (!(std::abs(amount) >= kLeastShown)) return 0;
    return amount > 0 ? 1 : -1;
}

QString signedText(double amount) {
    const auto direction = directionOf(amount);
    if (direction == 0) return priceText(0);
    return (direction > 0 ? u'+' : QChar(u'\u2212')) + priceText(std::abs(amount));
}

std::optional<QString> percentText(double price, std::optional<double> reference) {
    if (!canMeasure(price, reference)) return std::nullopt;
    return signedText((price - *reference) / *reference * 100) + QLocale().percent();
}

std::optional<QString> changeText(double price, std::optional<double> reference) {
    const auto percent = percentText(price, reference);
    if (!percent) return std::nullopt;
    return signedText(price - *reference) + QStringLiteral(" (") + *percent + u')';
}

}  // namespace app
