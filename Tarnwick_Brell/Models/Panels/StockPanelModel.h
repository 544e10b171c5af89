#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QPointF>
#include <QStringList>

#include "Tarnwick_Brell/Models/Charts/QuoteChartData.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Panels/TrackerLabels.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace kit {
struct QuoteContent;
}

namespace app {

/// Apple's share: price, change of the day, and a chart over one of four ranges with the
/// panel's events on it. The range begins as the panel's options have it; another choice holds
/// as long as this content, and is what the desk keeps fetching.
class StockPanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(StockPanelModel)
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QString price READ price NOTIFY changed)
    Q_PROPERTY(QString change READ change NOTIFY changed)
    Q_PROPERTY(app::PriceMove::Value move READ move NOTIFY changed)
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed)
    Q_PROPERTY(QList<QString> ranges READ ranges CONSTANT)
    Q_PROPERTY(int range READ range NOTIFY changed)
    Q_PROPERTY(QList<QPointF> points READ points NOTIFY changed)
    Q_PROPERTY(bool hasPreviousClose READ hasPreviousClose NOTIFY changed)
    Q_PROPERTY(double previousClose READ previousClose NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* prices READ prices CONSTANT)
    Q_PROPERTY(QString longestPrice READ longestPrice NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* times READ times CONSTANT)
    Q_PROPERTY(QAbstractListModel* marks READ marks CONSTANT)
    Q_PROPERTY(QString chartMessage READ chartMessage NOTIFY changed)
    Q_PROPERTY(QString spokenChart READ spokenChart NOTIFY changed)

public:
    StockPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    const QString& price() const { return price_; }
    const QString& change() const { return change_; }  ///< empty when there is none to tell
    PriceMove::Value move() const { return move_; }
    bool isOpen() const { return isOpen_; }
    QStringList ranges() const { return {tr("1D"), tr("1W"), tr("1M"), tr("1Y")}; }
    int range() const { return static_cast<int>(range_); }
    const QList<QPointF>& points() const { return curve_.points(); }
    bool hasPreviousClose() const { return curve_.previousClose().has_value(); }
    double previousClose() const { return curve_.previousClose().value_or(0); }
    GadgetListModel<ChartTick>* prices() { return &prices_; }
    /// Of the labels of `prices`, for the room they take.
    QString longestPrice() const;
    GadgetListModel<ChartTick>* times() { return &times_; }
    GadgetListModel<ChartMark>* marks() { return &marks_; }
    /// Instead of a curve: that it comes, that there is none, or why there is none.
    const QString& chartMessage() const { return chartMessage_; }
    const QString& spokenChart() const { return spokenChart_; }

    /// Its place in `ranges`.
    Q_INVOKABLE void choose(int range);
    /// The point next to a share of the chart's width; -1 when there is none.
    Q_INVOKABLE int nearest(double position) const { return curve_.nearest(position); }
    Q_INVOKABLE app::ChartReading reading(int point) const { return curve_.reading(point); }

    void tick() override;
    void retry() override;

private:
    using Quote = kit::CachedValue<kit::StockQuote>;

    void refresh();
    void showPrice(const kit::QuoteContent& content);
    void showChart(const Quote& quote);

    std::vector<std::string> terms_;
    kit::QuoteRange range_;
    QString price_;
    QString change_;
    PriceMove::Value move_ = PriceMove::Unknown;
    bool isOpen_ = false;
    QuoteChartData curve_;
    GadgetListModel<ChartTick> prices_;
    GadgetListModel<ChartTick> times_;
    GadgetListModel<ChartMark> marks_;
    QString chartMessage_;
    QString spokenChart_;
};

}  // namespace app
