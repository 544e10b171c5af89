#include "Tarnwick_Brell/Models/Charts/QuoteChartData.h"

#include <algorithm>
#include <cmath>

#include "NewsroomKit/Panels/PercentSeries.h"
#include "NewsroomKit/Panels/QuoteContent.h"
#include "NewsroomKit/Trackers/Market/QuotePlaces.h"
#include "Tarnwick_Brell/Models/Charts/ChartScale.h"
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

ChartScale scaleOf(const std::vector<Point>& points, std::optional<double> reference) {
    auto [low, high] = std::ranges::minmax(points, {}, &Point::close);
    return {std::min(low.close, reference.value_or(low.close)),
            std::max(high.close, reference.value_or(high.close))};
}

QString momentOf(Instant time, const std::string& range, Instant now) {
    if (range == rawValue(QuoteRange::day)) return clockText(time);
    const auto day = dayText(time, now);
    return range == rawValue(QuoteRange::week) ? day + u' ' + clockText(time) : day;
}

}  // namespace

QuoteChartData::QuoteChartData(StockQuote quote, const std::vector<AppleCalendarEvent>& events,
                               Instant now, const std::vector<StockQuote>& compared)
    : quote_(std::move(quote)), now_(now) {
    const auto reference = kit::referenceOf(quote_);
    quote_.points = drawable(std::move(quote_.points));
    if (quote_.points.empty()) return;
    if (compared.empty())
        placePrices(reference);
    else
        placePercents(compared);
    times_ = timeTicks(quote_, kit::pointPlaces(quote_));
    const auto days = [](Instant from, Instant to) { return daysBetween(from, to); };
    for (const auto& event : kit::eventsOnChart(quote_.points, events, now_, days))
        placeEvent(event);
}

void QuoteChartData::placePrices(std::optional<double> close) {
    const auto scale = scaleOf(quote_.points, close);
    const auto places = kit::pointPlaces(quote_);
    for (std::size_t i = 0; i < places.size(); ++i)
        points_.emplace_back(places[i], scale.position(quote_.points[i].close));
    if (close) baseline_ = scale.position(*close);
    prices_ = scale.ticks();
}

void QuoteChartData::placePercents(const std::vector<StockQuote>& compared) {
    std::ranges::stable_sort(quote_.points, {}, &Point::time);
    const auto places = kit::pointPlaces(quote_);
    kit::PercentSeries own;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto ratio = quote_.points[i].close / quote_.points.front().close;
        own.points.push_back({places[i], (ratio - 1) * 100});
    }
    std::vector<kit::PercentSeries> others;
    double low = 0, high = 0;
    const auto include = [&](const kit::PercentSeries& series) {
        for (const auto& point : series.points) {
            low = std::min(low, point.percent);
            high = std::max(high, point.percent);
        }
    };
    include(own);
    for (const auto& quote : compared)
        include(others.emplace_back(kit::percentSeries(quote, quote_)));

    const ChartScale scale(low, high, ChartScale::Unit::percent);
    const auto placed = [&](const kit::PercentSeries& series) {
        QList<QPointF> line;
        for (const auto& point : series.points)
            line.emplace_back(point.place, scale.position(point.percent));
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
    baseline_ = scale.position(0);
    prices_ = scale.ticks();
}

void QuoteChartData::placeEvent(const AppleCalendarEvent& event) {
    const auto& points = quote_.points;
    const auto after = std::ranges::upper_bound(points, event.starts, {}, &Point::time);
    const auto right = static_cast<qsizetype>(
        std::min<std::ptrdiff_t>(after - points.begin(), std::ssize(points) - 1));
    const auto left = std::max<qsizetype>(right - 1, 0);
    const auto& from = points[static_cast<std::size_t>(left)];
    const auto& to = points[static_cast<std::size_t>(right)];
    const std::chrono::duration<double> whole = to.time - from.time,
                                        passed = event.starts - from.time;
    const double share = whole.count() > 0 ? std::clamp(passed / whole, 0.0, 1.0) : 1;
    const auto place = points_[left] + (points_[right] - points_[left]) * share;
    marks_.push_back({.position = place.x(),
                      .level = place.y(),
                      .title = titleText(event.title),
                      .nearest = static_cast<int>(share < 0.5 ? left : right)});
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
    const auto mark = std::ranges::find(marks_, index, &ChartMark::nearest);
    if (mark != marks_.end()) reading.event = mark->title;
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
