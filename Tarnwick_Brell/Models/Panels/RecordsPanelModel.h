#pragma once

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SignalRow.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// Firmware that Apple began or stopped to sign, the last seen first. A build counts once, for
/// however many models it changed.
class RecordsPanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(RecordsPanelModel)
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    RecordsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    GadgetListModel<SignalRow>* rows() { return &rows_; }

    void tick() override { look(); }
    void retry() override { signalsStore().refresh(SignalRound::signing); }

private:
    void look();

    GadgetListModel<SignalRow> rows_;
};

}  // namespace app
