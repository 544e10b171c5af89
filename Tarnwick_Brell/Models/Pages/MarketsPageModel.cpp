#include "Tarnwick_Brell/Models/Pages/MarketsPageModel.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>

#include <QLocale>

#include "NewsroomKit/Panels/QuoteContent.h"
#include "NewsroomKit/Trackers/Events/MarkedEvents.h"
#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Models/Panels/NewestShare.h"
#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::QuoteRange;

constexpr int kLongestTicker = 12;
constexpr int kLongestCompany = 60;
constexpr int kLongestMarket = 20;

QString betweenText(std::optional<double> low, std::optional<double> high) {
    if (!low || !high) return {};
    return MarketsPageModel::tr("%1 to %2").arg(priceText(*low), priceText(*high));
}

std::vector<MarketFigure> figuresOf(const kit::StockQuote& quote) {
    const auto close = quote.previousClose();
    std::vector<MarketFigure> figures{
        {MarketsPageModel::tr("Previous close"), close ? priceText(*close) : QString()},
        {MarketsPageModel::tr("Today"), betweenText(quote.dayLow, quote.dayHigh)},
        {MarketsPageModel::tr("52 weeks"), betweenText(quote.yearLow, quote.yearHigh)},
        {MarketsPageModel::tr("Volume"),
         quote.volume ? QLocale().toString(*quote.volume, 'f', 0) : QString()}};
    std::erase_if(figures, [](const MarketFigure& figure) { return figure.value.isEmpty(); });
    return figures;
}

}  // namespace

MarketsPageModel::MarketsPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Markets")), moveLoader_(stores.library, stores.clock) {
    connect(&trackers(), &TrackerStore::quotesChanged, this, &MarketsPageModel::update);
    connect(&trackers(), &TrackerStore::boardChanged, this, &MarketsPageModel::update);
    connect(&trackers(), &TrackerStore::eventsChanged, this, &MarketsPageModel::update);
    connect(&stores.alerts, &AlertStore::rulesChanged, this, &MarketsPageModel::update);
    connect(&moveLoader_, &MoveLoader::changed, this, &MarketsPageModel::update);
    trackers().readYear();
    update();
}

QString MarketsPageModel::symbol() const {
    return titleText(trackers().focusSymbol(), kLongestTicker);
}

QString MarketsPageModel::comparison() const {
    QStringList symbols;
    for (const auto& symbol : trackers().compared()) symbols << titleText(symbol, kLongestTicker);
    return symbols.isEmpty() ? tr("Compare") : tr("Compare: %1").arg(symbols.join(tr(", ")));
}

int MarketsPageModel::chartedRow() const {
    const auto& rows = board_.rows();
    const auto row = std::ranges::find(rows, true, &MarketRow::isCharted);
    return row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
}

QString MarketsPageModel::boardFact() const {
    const auto count = board_.rowCount();
    return count > 0 ? tr("%n symbols", nullptr, count) : QString();
}

void MarketsPageModel::chooseRange(int range) {
    if (range < 0 || range >= ranges().size() || range == this->range()) return;
    trackers().setQuoteRange(static_cast<QuoteRange>(range));
    update();
}

void MarketsPageModel::chartRow(int row) {
    const auto* share = board_.row(row);
    if (!share) return;
    const auto symbol = share->id;
    try {
        auto compared = trackers().compared();
        std::erase(compared, symbol);
        trackers().setCompared(std::move(compared));
        trackers().setFocusSymbol(symbol);
        trackers().readYear();
    } catch (const std::invalid_argument& error) {
        emit noticed(bodyText(error.what()));
    }
    update();
}

void MarketsPageModel::compareRow(int row) {
    const auto* share = board_.row(row);
    if (!share || share->isCharted) return;
    auto compared = trackers().compared();
    if (std::erase(compared, share->id) == 0) {
        compared.push_back(share->id);
        if (compared.size() > kMostCompared) compared.erase(compared.begin());
    }
    trackers().setCompared(std::move(compared));
    update();
}

void MarketsPageModel::compareNothing() {
    trackers().setCompared({});
    update();
}

void MarketsPageModel::retry() {
    trackers().refresh(Tracker::quotes);
    trackers().refresh(Tracker::board);
}

/// A share's price is the same in all ranges, and the one of another range stays until that of this
/// range has come. Only Apple's share is held over all of them.
const MarketsPageModel::Quote& MarketsPageModel::priced() const {
    const auto& charted = trackers().focusQuote();
    if (charted.value || trackers().focusSymbol() != TrackedFiles::kShare) return charted;
    const auto* newest = newestShare(trackers());
    return newest ? *newest : charted;
}

void MarketsPageModel::update() {
    const auto& quote = priced();
    const auto& board = trackers().board();
    const bool hasBoard = board.value && !board.value->empty();
    // The board is shown while the quote comes, and the other way round.
    auto condition = quote.value || !hasBoard ? conditionOf(quote) : conditionOf(board);
    price_.clear();
    change_.clear();
    market_.clear();
    move_ = PriceMove::Unknown;
    isOpen_ = false;
    figures_.setRows({});
    if (quote.value) {
        const auto content = kit::quoteContent(*quote.value, quote.fetchedAt);
        showPrice(*quote.value, content);
        if (condition.state == Ready && content.isOld) {
            condition.state = Stale;
            condition.message = tr("The service itself has only old figures.");
        }
    }
    readMoves();
    showMoves();
    showChart(trackers().focusQuote());
    showBoard();
    setCondition(std::move(condition));
}

void MarketsPageModel::showPrice(const kit::StockQuote& quote, const kit::QuoteContent& content) {
    price_ = priceText(content.price);
    change_ = content.change ? changeText(*content.change) : QString();
    move_ = moveOf(content.change);
    isOpen_ = content.isOpen;
    market_ = labelText(content.market, kLongestMarket);
    if (content.pricedAt) market_ = tr("%1, %2").arg(market_, momentText(*content.pricedAt, now()));
    figures_.setRows(figuresOf(quote));
}

void MarketsPageModel::showChart(const Quote& quote) {
    const auto& events = trackers().events().value;
    const auto rules = stores().alerts.evaluatedRules();
    ChartAdditions additions{.moves = moveLoader_.moves(),
                             .levels = kit::priceLevels(rules, trackers().focusSymbol())};
    // Those that are still to come have a place in the legend.
    for (const auto& symbol : trackers().compared())
        additions.compared.push_back({.symbol = symbol});
    for (const auto& held : trackers().comparisonQuotes()) {
        const auto place =
            std::ranges::find(additions.compared, held.symbol, &kit::StockQuote::symbol);
        if (place != additions.compared.end()) *place = held;
    }
    chart_.show(quote,
                events ? kit::markedEvents(*events, {}) : std::vector<kit::AppleCalendarEvent>(),
                now(), additions);
}

void MarketsPageModel::showBoard() {
    const auto& board = trackers().board();
    const auto* newest = newestShare(trackers());
    const auto* share = newest ? &*newest->value : nullptr;
    std::vector<MarketRow> rows;
    if (board.value) {
        for (const auto& group : kit::boardGroups(*board.value, share)) {
            for (const auto& each : group.rows) {
                rows.push_back(rowOf(each));
                if (&each == &group.rows.front())
                    rows.back().heading = titleText(group.name, kLongestCompany);
            }
        }
    }
    boardMessage_.clear();
    if (board.error)
        boardMessage_ = bodyText(*board.error);
    else if (rows.empty())
        boardMessage_ = board.value ? tr("The board of suppliers is empty.") : tr("Loading…");
    board_.setRows(std::move(rows));
}

MarketRow MarketsPageModel::rowOf(const kit::BoardRow& share) const {
    const auto& quote = share.quote;
    const auto& compared = trackers().compared();
    MarketRow row{.id = quote.symbol,
                  .symbol = titleText(quote.symbol, kLongestTicker),
                  .name = titleText(quote.name, kLongestCompany),
                  .price = priceText(quote.price),
                  .move = moveOf(share.change),
                  .isOld = quote.stale.value_or(false),
                  .isCharted = quote.symbol == trackers().focusSymbol(),
                  .isCompared = std::ranges::find(compared, quote.symbol) != compared.end(),
                  .line = sparkline(quote.points)};
    if (share.change) row.change = percentText(share.change->percent);
    row.spokenText = tr("%1, %2 %3, %4")
                         .arg(row.name, row.price, titleText(quote.currency, kLongestTicker),
                              row.change.isEmpty() ? tr("change not known") : row.change);
    if (row.isOld) row.spokenText += QStringLiteral(", ") + tr("old");
    if (row.isCharted) row.spokenText += QStringLiteral(", ") + tr("charted");
    if (row.isCompared) row.spokenText += QStringLiteral(", ") + tr("compared");
    return row;
}

}  // namespace app
