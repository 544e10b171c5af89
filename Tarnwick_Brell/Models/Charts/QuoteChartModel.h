#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QObject>
#include <QPointF>
#include <qqmlregistration.h>

#include "NewsroomKit/Trackers/CachedValue.h"
#include "Tarnwick_Brell/Models/Charts/QuoteChartData.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A quote's chart, for the panel of the share and the page of the markets.
class QuoteChartModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Panels and pages make their charts.")
    Q_PROPERTY(QList<QPointF> points READ points NOTIFY changed)
    Q_PROPERTY(bool hasBaseline READ hasBaseline NOTIFY changed)
    Q_PROPERTY(double baseline READ baseline NOTIFY changed)
    Q_PROPERTY(QString change READ change NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* lines READ lines CONSTANT)
    Q_PROPERTY(QAbstractListModel* prices READ prices CONSTANT)
    Q_PROPERTY(QString longestPrice READ longestPrice NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* times READ times CONSTANT)
    Q_PROPERTY(QAbstractListModel* marks READ marks CONSTANT)
    Q_PROPERTY(QAbstractListModel* levels READ levels CONSTANT)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString spokenText READ spokenText NOTIFY changed)

public:
    using QObject::QObject;

    const QList<QPointF>& points() const { return curve_.points(); }
    bool hasBaseline() const { return curve_.baseline().has_value(); }
    double baseline() const { return curve_.baseline().value_or(0); }
    const QString& change() const { return curve_.change(); }
    GadgetListModel<ChartLine>* lines() { return &lines_; }
    GadgetListModel<ChartTick>* prices() { return &prices_; }
    /// Of the labels of `prices`, for the room they take.
    QString longestPrice() const;
    GadgetListModel<ChartTick>* times() { return &times_; }
    GadgetListModel<ChartMark>* marks() { return &marks_; }
    /// The rules on the price, the highest first.
    GadgetListModel<ChartLevel>* levels() { return &levels_; }
    /// Instead of a curve: that it comes, that there is none, or why there is none.
    const QString& message() const { return message_; }
    const QString& spokenText() const { return spokenText_; }

    /// The point next to a share of the chart's width; -1 when there is none.
    Q_INVOKABLE int nearest(double position) const { return curve_.nearest(position); }
    Q_INVOKABLE app::ChartReading reading(int point) const { return curve_.reading(point); }

    // A level while it is being set.
    Q_INVOKABLE double positionOf(double price) const { return curve_.positionOf(price); }
    Q_INVOKABLE double priceAt(double position) const { return curve_.priceAt(position); }
    /// That many steps on.
    Q_INVOKABLE double stepped(double price, int steps) const;
    Q_INVOKABLE QString levelText(double price) const;

    /// The events are the marked ones.
    void show(const kit::CachedValue<kit::StockQuote>& quote,
              const std::vector<kit::AppleCalendarEvent>& events, kit::Instant now,
              const ChartAdditions& additions = {});

signals:
    void changed();

private:
    QuoteChartData curve_;
    GadgetListModel<ChartLine> lines_;
    GadgetListModel<ChartTick> prices_;
    GadgetListModel<ChartTick> times_;
    GadgetListModel<ChartMark> marks_;
    GadgetListModel<ChartLevel> levels_;
    QString message_;
    QString spokenText_;
};

}  // namespace app
