#pragma once

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SignalRow.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// What came into Apple's update catalogue and what went, the last seen first, and below it the
/// newest offer for each platform.
class BackendPanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(BackendPanelModel)
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    BackendPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    GadgetListModel<SignalRow>* rows() { return &rows_; }

    void tick() override { look(); }
    void retry() override { signalsStore().refresh(SignalRound::updates); }

private:
    void look();
    void addChanges(std::vector<SignalRow>& rows) const;
    void addOffers(std::vector<SignalRow>& rows) const;

    GadgetListModel<SignalRow> rows_;
};

}  // namespace app
