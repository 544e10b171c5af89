#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QPointF>

#include "NewsroomKit/Trackers/Market/BoardQuote.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Panels/TrackerLabels.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A share of the board.
struct SupplierRow {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString relation MEMBER relation)
    Q_PROPERTY(QString price MEMBER price)
    Q_PROPERTY(QString currency MEMBER currency)
    Q_PROPERTY(QString change MEMBER change)
    Q_PROPERTY(app::PriceMove::Value move MEMBER move)
    Q_PROPERTY(QList<QPointF> line MEMBER line)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< of the group, above its first share
    QString symbol{};
    QString name{};
    QString relation{};  ///< how the company relates to Apple
    QString price{};
    QString currency{};
    QString change{};  ///< of the day, in percent; empty when not known
    PriceMove::Value move = PriceMove::Unknown;
    QList<QPointF> line{};  ///< as QuoteChartData.h has it
    QString spokenText{};

    bool operator==(const SupplierRow&) const = default;
};

/// Apple's share beside those of its suppliers and partners, group by group in the board's
/// order.
class SuppliersPanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SuppliersPanelModel)
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    SuppliersPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    GadgetListModel<SupplierRow>* rows() { return &rows_; }

    void tick() override { refresh(); }
    void retry() override { trackers().refresh(Tracker::board); }

private:
    void refresh();

    GadgetListModel<SupplierRow> rows_;
};

}  // namespace app
