#pragma once

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Panels/TrackerLabels.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// An app's place.
struct ChartRow {
    Q_GADGET
    Q_PROPERTY(QString rank MEMBER rank)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString developer MEMBER developer)
    Q_PROPERTY(QString change MEMBER change)
    Q_PROPERTY(app::PriceMove::Value move MEMBER move)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString link MEMBER link)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString rank{};
    QString name{};
    QString developer{};
    QString change{};  ///< "+3" places, since the last day on which the chart was seen
    PriceMove::Value move = PriceMove::Unknown;
    bool isNew = false;
    QString link{};
    QString spokenText{};

    bool operator==(const ChartRow&) const = default;
};

/// A chart of the App Store.
class ChartPanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ChartPanelModel)
    QML_UNCREATABLE("The page of the charts makes them.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)

public:
    ChartPanelModel(const PanelStores& stores, kit::AppStoreCharts::Kind chart);

    GadgetListModel<ChartRow>* rows() { return &rows_; }
    QString title() const;

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::charts); }

private:
    void update();

    kit::AppStoreCharts::Kind chart_;
    GadgetListModel<ChartRow> rows_;
};

}  // namespace app
