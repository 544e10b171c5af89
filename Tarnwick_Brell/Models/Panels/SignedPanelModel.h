#pragma once

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SignalRow.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// What Apple signs now for each model that is asked for, model by model.
class SignedPanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SignedPanelModel)
    QML_UNCREATABLE("The page of firmware signing makes it.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    explicit SignedPanelModel(const PanelStores& stores);

    GadgetListModel<SignalRow>* rows() { return &rows_; }

    void tick() override { look(); }
    void retry() override { signalsStore().refresh(SignalRound::signing); }

private:
    void look();
    void add(const std::string& device, std::vector<SignalRow>& rows) const;

    GadgetListModel<SignalRow> rows_;
};

}  // namespace app
