#pragma once

#include <optional>
#include <vector>

#include <QList>
#include <QPointF>

#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "Tarnwick_Brell/Models/Charts/ChartRows.h"

namespace app {

/// A quote's points as a view draws them: everything within 0 and 1, whatever the service
/// says. Points without a price that can be are left out.
class QuoteChartData {
public:
    QuoteChartData() = default;
    /// The events are the marked ones; of them, those that are past and within the points' time
    /// stand on the axis. With `compared`, which may still be empty of prices, everything is in
    /// per cent from the beginning of the range.
    QuoteChartData(kit::StockQuote quote, const std::vector<kit::AppleCalendarEvent>& events,
                   kit::Instant now, const std::vector<kit::StockQuote>& compared = {});

    const QList<QPointF>& points() const { return points_; }
    /// The height of the previous close, or of no change where symbols are compared; nothing when
    /// it is not known.
    std::optional<double> baseline() const { return baseline_; }
    const std::vector<ChartTick>& prices() const { return prices_; }
    const std::vector<ChartTick>& times() const { return times_; }
    const std::vector<ChartMark>& marks() const { return marks_; }

    /// The compared symbols, in their order.
    const std::vector<ChartLine>& lines() const { return lines_; }
    /// Over the range, where symbols are compared.
    const QString& change() const { return change_; }

    /// The point next to that share of the width; -1 when there is none.
    int nearest(double position) const;
    /// The first or the last for a number beyond them; of nothing when there is no point.
    ChartReading reading(int point) const;

private:
    void placePrices(std::optional<double> close);
    void placePercents(const std::vector<kit::StockQuote>& compared);
    void placeEvent(const kit::AppleCalendarEvent& event);

    kit::StockQuote quote_;
    kit::Instant now_{};
    QList<QPointF> points_;
    std::vector<double> percents_;  ///< of the points, where symbols are compared
    std::optional<double> baseline_;
    std::vector<ChartLine> lines_;
    QString change_;
    std::vector<ChartTick> prices_;
    std::vector<ChartTick> times_;
    std::vector<ChartMark> marks_;
};

/// A line without anything beside it, from its lowest price at the bottom to its highest.
QList<QPointF> sparkline(const std::vector<kit::StockQuote::Point>& points);

}  // namespace app
