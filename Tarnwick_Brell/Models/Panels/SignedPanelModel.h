#pragma once

#include "Tarnwick_Brell/Models/Panels/SignalsPanelModel.h"

namespace app {

/// What Apple signs now for each model that is asked for, model by model.
class SignedPanelModel final : public SignalsPanelModel {
    Q_OBJECT

public:
    explicit SignedPanelModel(const PanelStores& stores);

    QString label() const override { return tr("Firmware that is signed"); }

    void tick() override { look(); }
    void retry() override { signalsStore().refresh(SignalRound::signing); }

private:
    void look();
    void add(const std::string& device, std::vector<SignalRow>& rows) const;
};

}  // namespace app
