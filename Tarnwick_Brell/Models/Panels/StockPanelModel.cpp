#include "Tarnwick_Brell/Models/Panels/StockPanelModel.h"

#include "NewsroomKit/Panels/QuoteContent.h"
#include "NewsroomKit/Trackers/Events/MarkedEvents.h"
#include "Tarnwick_Brell/Models/Panels/NewestShare.h"
#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::QuoteRange;

// A range that the store does not keep fresh by itself.
constexpr std::chrono::minutes kFreshWhileOpen{2};
constexpr std::chrono::minutes kFreshWhileClosed{30};

constexpr int kMarketCharacters = 20;

}  // namespace

StockPanelModel::StockPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel),
      terms_(panel.options.eventTerms),
      range_(kit::enumFromRaw<QuoteRange>(panel.options.stockRange).value_or(QuoteRange::month)) {
    connect(&trackers(), &TrackerStore::quotesChanged, this, &StockPanelModel::refresh);
    connect(&trackers(), &TrackerStore::eventsChanged, this, &StockPanelModel::refresh);
    if (range_ != trackers().quoteRange()) trackers().readQuote(range_);
    refresh();
}

void StockPanelModel::choose(int range) {
    if (range < 0 || range >= ranges().size() || range == this->range()) return;
    range_ = static_cast<QuoteRange>(range);
    trackers().setQuoteRange(range_);
    // Which fetches nothing when another panel has changed it to this one before.
    trackers().readQuote(range_);
    refresh();
}

void StockPanelModel::tick() {
    if (range_ != trackers().quoteRange())
        trackers().readQuote(range_, isOpen_ ? kFreshWhileOpen : kFreshWhileClosed);
    refresh();
}

void StockPanelModel::retry() {
    trackers().refresh(Tracker::quotes);
    if (range_ != trackers().quoteRange()) trackers().readQuote(range_, std::chrono::seconds(0));
}

void StockPanelModel::refresh() {
    const auto* newest = newestShare(trackers());
    const auto& charted = trackers().quote(range_);
    // Without a chart of this range there may still be a price.
    const auto& priced = newest ? *newest : charted;
    auto condition = conditionOf(charted.value ? charted : priced);
    if (priced.value) {
        const auto content = kit::quoteContent(*priced.value, priced.fetchedAt);
        showPrice(content);
        condition.fact = labelText(content.market, kMarketCharacters);
        if (content.pricedAt)
            condition.fact += QStringLiteral(", ") + momentText(*content.pricedAt, now());
        if (condition.state == Ready && content.isOld) {
            condition.state = Stale;
            condition.message = tr("The service itself has only old figures.");
        }
    }
    showChart(charted);
    setCondition(std::move(condition));
}

void StockPanelModel::showPrice(const kit::QuoteContent& content) {
    price_ = priceText(content.price);
    change_ = content.change ? changeText(*content.change) : QString();
    move_ = moveOf(content.change);
    isOpen_ = content.isOpen;
}

void StockPanelModel::showChart(const Quote& quote) {
    const auto& events = trackers().events().value;
    chart_.show(
        quote, events ? kit::markedEvents(*events, terms_) : std::vector<kit::AppleCalendarEvent>(),
        now());
}

}  // namespace app
