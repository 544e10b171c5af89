#include "Tarnwick_Brell/Models/Charts/TimeTicks.h"

#include <chrono>

#include <QDateTime>
#include <QLocale>

#include "NewsroomKit/Trackers/Market/QuotePlaces.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using namespace std::chrono;
using kit::Instant;
using kit::QuoteRange;

constexpr double kLeastGap = 0.19;

/// In the user's zone: what is the same for two times without a tick between them.
qint64 periodOf(Instant time, QuoteRange range) {
    const auto local =
        QDateTime::fromMSecsSinceEpoch(floor<milliseconds>(time.time_since_epoch()).count());
    const auto date = local.date();
    switch (range) {
        case QuoteRange::day: return date.toJulianDay() * 24 + local.time().hour();
        case QuoteRange::week: return date.toJulianDay();
        case QuoteRange::month: return (date.toJulianDay() - date.dayOfWeek()) / 7;
        case QuoteRange::year: return date.year() * 12 + date.month();
    }
    return 0;
}

QString labelOf(Instant time, QuoteRange range) {
    const auto local =
        QDateTime::fromMSecsSinceEpoch(floor<milliseconds>(time.time_since_epoch()).count());
    switch (range) {
        case QuoteRange::day: return clockText(time);
        case QuoteRange::week: return QLocale().toString(local, QStringLiteral("ddd d"));
        case QuoteRange::month: return QLocale().toString(local, QStringLiteral("d MMM"));
        case QuoteRange::year: return QLocale().toString(local, QStringLiteral("MMM"));
    }
    return {};
}

/// The full hours of the user's clock in a session.
std::vector<ChartTick> hours(const kit::StockQuote& quote) {
    const auto open = *quote.sessionOpen;
    const duration<double> whole = *quote.sessionClose - open;
    std::vector<ChartTick> ticks;
    constexpr auto quarter = minutes(15);  // zones differ by no less
    for (auto time = ceil<minutes>(open); time <= *quote.sessionClose && time < open + days(1);) {
        const auto local =
            QDateTime::fromMSecsSinceEpoch(milliseconds(time.time_since_epoch()).count());
        if (local.time().minute() == 0) {
            ticks.push_back({.position = (time - open) / whole, .label = clockText(time)});
            time += std::chrono::hours(1);
        } else {
            time = floor<minutes>(time) + (quarter - minutes(local.time().minute() % 15));
        }
    }
    return ticks;
}

}  // namespace

std::vector<ChartTick> timeTicks(const kit::StockQuote& quote, const std::vector<double>& places) {
    const auto range = kit::enumFromRaw<QuoteRange>(quote.range).value_or(QuoteRange::month);
    std::vector<ChartTick> all;
    if (kit::isWithinSession(quote)) {
        all = hours(quote);
    } else {
        for (std::size_t i = 0; i < places.size(); ++i) {
            const auto time = quote.points[i].time;
            if (i > 0 && periodOf(time, range) == periodOf(quote.points[i - 1].time, range))
                continue;
            all.push_back({.position = places[i], .label = labelOf(time, range)});
        }
    }
    std::vector<ChartTick> apart;
    for (auto& tick : all) {
        if (apart.empty() || tick.position - apart.back().position >= kLeastGap)
            apart.push_back(std::move(tick));
    }
    return apart;
}

}  // namespace app
