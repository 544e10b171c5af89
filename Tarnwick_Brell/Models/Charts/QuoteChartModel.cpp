#include "Tarnwick_Brell/Models/Charts/QuoteChartModel.h"

#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

QString QuoteChartModel::longestPrice() const {
    QString longest;
    for (const auto& tick : curve_.prices()) {
        if (tick.label.size() > longest.size()) longest = tick.label;
    }
    return longest;
}

double QuoteChartModel::stepped(double price, int steps) const {
    return kit::steppedPrice(price + steps * kit::levelStep(price));
}

QString QuoteChartModel::levelText(double price) const { return priceText(price); }

void QuoteChartModel::show(const kit::CachedValue<kit::StockQuote>& quote,
                           const std::vector<kit::AppleCalendarEvent>& events, kit::Instant now,
                           const ChartAdditions& additions) {
    curve_ = {};
    message_ = quote.error ? bodyText(*quote.error) : tr("Loading…");
    spokenText_ = message_;
    if (quote.value) {
        curve_ = QuoteChartData(*quote.value, events, now, additions);
        message_ = points().isEmpty() ? tr("No prices of this range.") : QString();
        const auto first = curve_.reading(0);
        const auto last = curve_.reading(static_cast<int>(points().size()) - 1);
        spokenText_ = points().isEmpty()
                          ? message_
                          : tr("From %1, %2, to %3, %4")
                                .arg(first.price, first.moment, last.price, last.moment);
    }
    lines_.setRows(curve_.lines());
    prices_.setRows(curve_.prices());
    times_.setRows(curve_.times());
    marks_.setRows(curve_.marks());
    levels_.setRows(curve_.levels());
    emit changed();
}

}  // namespace app
