#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QList>
#include <QPointF>

#include "NewsroomKit/Alerts/PriceLevels.h"
#include "NewsroomKit/Panels/MovesContent.h"
#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "Tarnwick_Brell/Models/Charts/ChartRows.h"
#include "Tarnwick_Brell/Models/Charts/ChartScale.h"

namespace app {

/// What a chart has beside its own curve and Apple's events.
struct ChartAdditions {
    std::vector<kit::StockQuote> compared{};  ///< may still be empty of prices
    std::vector<kit::MoveRow> moves{};
    std::vector<kit::PriceLevel> levels{};
};

/// A quote's points as a view draws them: everything within 0 and 1, whatever the service
/// says. Points without a price that can be are left out.
class QuoteChartData {
public:
    QuoteChartData() = default;
    /// The events are the marked ones; of them, those that are past and within the points' time
    /// are shown. Beside compared symbols everything is in per cent from the beginning of the
    /// range.
    QuoteChartData(kit::StockQuote quote, const std::vector<kit::AppleCalendarEvent>& events,
                   kit::Instant now, const ChartAdditions& additions = {});

    const QList<QPointF>& points() const { return points_; }
    /// The height of the previous close, or of no change where symbols are compared; nothing when
    /// it is not known.
    std::optional<double> baseline() const { return baseline_; }
    const std::vector<ChartTick>& prices() const { return prices_; }
    const std::vector<ChartTick>& times() const { return times_; }
    const std::vector<ChartMark>& marks() const { return marks_; }
    const std::vector<ChartLevel>& levels() const { return levels_; }

    /// Where a price stands, and which one stands there, in steps in which levels are set.
    double positionOf(double price) const;
    double priceAt(double position) const;

    /// The compared symbols, in their order.
    const std::vector<ChartLine>& lines() const { return lines_; }
    /// Over the range, where symbols are compared.
    const QString& change() const { return change_; }

    /// The point next to that share of the width; -1 when there is none.
    int nearest(double position) const;
    /// The first or the last for a number beyond them; of nothing when there is no point.
    ChartReading reading(int point) const;

private:
    void placePrices(std::optional<double> close, const std::vector<kit::PriceLevel>& levels);
    void placePercents(const ChartAdditions& additions);
    void placeLevels(const std::vector<kit::PriceLevel>& levels);
    void placeMarks(const std::vector<kit::AppleCalendarEvent>& events,
                    const std::vector<kit::MoveRow>& moves);
    double onScale(double price) const;

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
    std::vector<ChartLevel> levels_;
    std::optional<ChartScale> scale_;
    double base_ = 0;  ///< the first price, where the scale is in per cent
};

/// A line without anything beside it, from its lowest price at the bottom to its highest.
QList<QPointF> sparkline(const std::vector<kit::StockQuote::Point>& points);

}  // namespace app
