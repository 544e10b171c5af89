#include "Tarnwick_Brell/Models/Charts/QuoteChartData.h"

#include <algorithm>
#include <cmath>

#include "NewsroomKit/Panels/PercentSeries.h"
#include "NewsroomKit/Panels/QuoteContent.h"
#include "NewsroomKit/Panels/QuoteMarks.h"
#include "NewsroomKit/Trackers/Market/QuotePlaces.h"
#include "Tarnwick_Brell/Models/Charts/MoveLines.h"
#include "Tarnwick_Brell/Models/Charts/TimeTicks.h"
#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::AppleCalendarEvent;
using kit::Instant;
using kit::QuoteRange;
using kit::StockQuote;
using Point = StockQuote::Point;

constexpr int kLongestLineSymbol = 12;
// More than a screen has pixels across.
constexpr std::size_t kMostPoints = 4000;

std::vector<Point> drawable(std::vector<Point> points) {
    points = kit::pricedPoints(std::move(points));
    if (points.size() <= kMostPoints) return points;
    const auto stride = points.size() / kMostPoints + 1;
    std::vector<Point> some;
    // Counted from the end: the last point is the current price.
    for (auto left = points.size(); left > 0; left -= std::min(left, stride))
        some.push_back(points[left - 1]);
    std::ranges::reverse(some);
    return some;
}

struct ChartBounds {
    double low = 0;
    double high = 0;

    void include(double value) {
        low = std::min(low, value);
        high = std::max(high, value);
    }
    /// Takes in the levels that leave the curve at least a third of the height. Those further
    /// away would press it flat; they stand at the edge.
    void stretchTo(const std::vector<double>& levels) {
        const ChartBounds curve = *this;
        const double span = curve.high - curve.low;
        for (const double level : levels) {
            if (level >= curve.low - span && level <= curve.high + span) include(level);
        }
    }
};

ChartBounds boundsOf(const std::vector<Point>& points, std::optional<double> reference) {
    const auto [low, high] = std::ranges::minmax(points, {}, &Point::close);
    ChartBounds bounds{low.close, high.close};
    if (reference) bounds.include(*reference);
    return bounds;
}

QString momentOf(Instant time, const std::string& range, Instant now) {
    if (range == rawValue(QuoteRange::day)) return clockText(time);
    const auto day = dayText(time, now);
    return range == rawValue(QuoteRange::week) ? day + u' ' + clockText(time) : day;
}

}  // namespace

QuoteChartData::QuoteChartData(StockQuote quote, const std::vector<AppleCalendarEvent>& events,
                               Instant now, const ChartAdditions& additions)
    : quote_(std::move(quote)), now_(now) {
    const auto reference = kit::referenceOf(quote_);
    quote_.points = drawable(std::move(quote_.points));
    if (quote_.points.empty()) return;
    if (additions.compared.empty())
        placePrices(reference, additions.levels);
    else
        placePercents(additions);
    times_ = timeTicks(quote_, kit::pointPlaces(quote_));
    placeLevels(additions.levels);
    placeMarks(events, additions.moves);
}

double QuoteChartData::onScale(double price) const {
    return base_ > 0 ? (price / base_ - 1) * 100 : price;
}

double QuoteChartData::positionOf(double price) const {
    return scale_ ? scale_->position(onScale(price)) : 0;
}

double QuoteChartData::priceAt(double position) const {
    if (!scale_) return 0;
    const double value = scale_->valueAt(std::clamp(position, 0.0, 1.0));
    return kit::steppedPrice(base_ > 0 ? base_ * (1 + value / 100) : value);
}

void QuoteChartData::placePrices(std::optional<double> close,
                                 const std::vector<kit::PriceLevel>& levels) {
    auto bounds = boundsOf(quote_.points, close);
    std::vector<double> prices;
    for (const auto& level : levels) prices.push_back(level.price);
    bounds.stretchTo(prices);
    scale_.emplace(bounds.low, bounds.high);
    const auto places = kit::pointPlaces(quote_);
    for (std::size_t i = 0; i < places.size(); ++i)
        points_.emplace_back(places[i], scale_->position(quote_.points[i].close));
    if (close) baseline_ = scale_->position(*close);
    prices_ = scale_->ticks();
}

void QuoteChartData::placeLevels(const std::vector<kit::PriceLevel>& levels) {
    for (const auto& level : levels) {
        levels_.push_back({.rule = QString::fromStdString(level.rule),
                           .name = titleText(level.name),
                           .price = level.price,
                           .position = positionOf(level.price),
                           .side = scale_->side(onScale(level.price)),
                           .isOn = level.isOn});
    }
}

void QuoteChartData::placePercents(const ChartAdditions& additions) {
    std::ranges::stable_sort(quote_.points, {}, &Point::time);
    const auto places = kit::pointPlaces(quote_);
    base_ = quote_.points.front().close;
    kit::PercentSeries own;
    for (std::size_t i = 0; i < places.size(); ++i)
        own.points.push_back({places[i], onScale(quote_.points[i].close)});
    std::vector<kit::PercentSeries> others;
    ChartBounds bounds;
    const auto include = [&](const kit::PercentSeries& series) {
        for (const auto& point : series.points) bounds.include(point.percent);
    };
    include(own);
    for (const auto& quote : additions.compared)
        include(others.emplace_back(kit::percentSeries(quote, quote_)));
    std::vector<double> levels;
    for (const auto& level : additions.levels) levels.push_back(onScale(level.price));
    bounds.stretchTo(levels);

    scale_.emplace(bounds.low, bounds.high, ChartScale::Unit::percent);
    const auto placed = [&](const kit::PercentSeries& series) {
        QList<QPointF> line;
        for (const auto& point : series.points)
            line.emplace_back(point.place, scale_->position(point.percent));
        return line;
    };
    const auto changeOf = [](const kit::PercentSeries& series) {
        return series.change() ? percentText(*series.change()) : QString();
    };
    points_ = placed(own);
    for (const auto& point : own.points) percents_.push_back(point.percent);
    change_ = changeOf(own);
    for (const auto& series : others) {
        lines_.push_back({.symbol = titleText(series.symbol, kLongestLineSymbol),
                          .change = changeOf(series),
                          .line = placed(series)});
    }
    baseline_ = scale_->position(0);
    prices_ = scale_->ticks();
}

void QuoteChartData::placeMarks(const std::vector<AppleCalendarEvent>& events,
                                const std::vector<kit::MoveRow>& moves) {
    const auto days = [](Instant from, Instant to) { return daysBetween(from, to); };
    const auto shown = kit::eventsOnChart(quote_.points, events, now_, days);
    for (const auto& mark : kit::quoteMarks(quote_, shown, moves)) {
        const auto place = points_[static_cast<qsizetype>(mark.point)];
        ChartMark row{
            .position = place.x(), .level = place.y(), .point = static_cast<int>(mark.point)};
        QStringList texts;
        for (const auto& event : mark.events) texts << titleText(event.title);
        row.events = texts.join(QStringLiteral(", "));
        texts = row.events.isEmpty() ? QStringList() : QStringList(row.events);
        if (mark.move) {
            const auto& move = moves[*mark.move];
            row.letter = QString::fromStdString(move.letter);
            row.rises = move.move.change > 0;
            texts << moveText(move);
        }
        row.spokenText = texts.join(QStringLiteral(". "));
        marks_.push_back(std::move(row));
    }
}

int QuoteChartData::nearest(double position) const {
    if (points_.empty() || std::isnan(position)) return -1;
    const auto next = std::ranges::lower_bound(points_, position, {}, &QPointF::x);
    if (next == points_.end()) return static_cast<int>(points_.size()) - 1;
    const auto index = static_cast<int>(next - points_.begin());
    if (index == 0) return 0;
    return position - std::prev(next)->x() < next->x() - position ? index - 1 : index;
}

ChartReading QuoteChartData::reading(int point) const {
    if (points_.empty()) return {};
    const auto index = std::clamp(point, 0, static_cast<int>(points_.size()) - 1);
    const auto& read = quote_.points[static_cast<std::size_t>(index)];
    ChartReading reading{.position = points_[index].x(),
                         .level = points_[index].y(),
                         .price = priceText(read.close),
                         .moment = momentOf(read.time, quote_.range, now_)};
    if (!percents_.empty())
        reading.change = percentText(percents_[static_cast<std::size_t>(index)]);
    const auto mark = std::ranges::find(marks_, index, &ChartMark::point);
    if (mark != marks_.end()) reading.event = mark->spokenText;
    reading.spokenText = reading.price + QStringLiteral(", ") + reading.moment;
    if (!reading.change.isEmpty()) reading.spokenText += QStringLiteral(", ") + reading.change;
    if (!reading.event.isEmpty()) reading.spokenText += QStringLiteral(", ") + reading.event;
    return reading;
}

QList<QPointF> sparkline(const std::vector<Point>& points) {
    const auto shown = drawable(points);
    if (shown.size() < 2) return {};
    const auto [low, high] = std::ranges::minmax(shown, {}, &Point::close);
    const double span = high.close - low.close;
    QList<QPointF> line;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const double x = static_cast<double>(i) / static_cast<double>(shown.size() - 1);
        line.emplace_back(x, span > 0 ? (high.close - shown[i].close) / span : 0.5);
    }
    return line;
}

}  // namespace app
