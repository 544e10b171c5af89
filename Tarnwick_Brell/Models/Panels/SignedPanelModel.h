#pragma once

#include "Tarnwick_Brell/Models/Panels/ChangesPanelModel.h"

namespace app {

/// What Apple signs now for each model that is asked for, model by model.
class SignedPanelModel final : public ChangesPanelModel {
    Q_OBJECT

public:
    explicit SignedPanelModel(const PanelStores& stores);

    QString label() const override { return tr("Firmware that is signed"); }

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::signing); }

private:
    void update();
};

}  // namespace app
