#pragma once

#include <QStringList>

#include "Tarnwick_Brell/Models/Charts/QuoteChartModel.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Panels/TrackerLabels.h"

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
    Q_PROPERTY(app::QuoteChartModel* chart READ chart CONSTANT)

public:
    StockPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    const QString& price() const { return price_; }
    const QString& change() const { return change_; }  ///< empty when there is none to tell
    PriceMove::Value move() const { return move_; }
    bool isOpen() const { return isOpen_; }
    QStringList ranges() const { return {tr("1D"), tr("1W"), tr("1M"), tr("1Y")}; }
    int range() const { return static_cast<int>(range_); }
    QuoteChartModel* chart() { return &chart_; }

    /// Its place in `ranges`.
    Q_INVOKABLE void choose(int range);
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
    QuoteChartModel chart_;
};

}  // namespace app
