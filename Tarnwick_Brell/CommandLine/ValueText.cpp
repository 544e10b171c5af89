#include "Tarnwick_Brell/CommandLine/ValueText.h"

#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace cli {

namespace {

const app::Style& style() {
    static const auto plain = app::Style::plain();
    return plain;
}

}  // namespace

std::string ageText(kit::Instant then, kit::Instant now) {
    return app::ageText(then, now, style()).toStdString();
}

std::string agoText(kit::Instant then, kit::Instant now) {
    return app::agoText(then, now, style()).toStdString();
}

std::string daysAwayText(int days) { return app::daysAwayText(days).toStdString(); }

int daysBetween(kit::Instant now, kit::Instant then) {
    return app::daysBetween(now, then, style());
}

std::string spanText(kit::Instant::duration span) { return app::spanText(span).toStdString(); }

// Plain dates do not depend on the present day.
std::string momentText(kit::Instant instant) {
    return app::momentText(instant, instant, style()).toStdString();
}

std::string dayText(kit::Instant instant) {
    return app::dayText(instant, instant, style()).toStdString();
}

std::string namedDayText(kit::Instant day) {
    return app::namedDayText(day, day, style()).toStdString();
}

std::string clockText(kit::Instant instant) {
    return app::clockText(instant, style()).toStdString();
}

std::string priceText(double price) { return app::priceText(price, style()).toStdString(); }

std::string percentText(double percent) { return app::percentText(percent, style()).toStdString(); }

std::string changeText(const kit::PriceChange& change) {
    return app::changeText(change, style()).toStdString();
}

}  // namespace cli
