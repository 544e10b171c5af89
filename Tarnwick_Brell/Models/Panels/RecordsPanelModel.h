#pragma once

#include "Tarnwick_Brell/Models/Panels/ChangesPanelModel.h"

namespace app {

/// Firmware that Apple began or stopped to sign.
class RecordsPanelModel final : public ChangesPanelModel {
    Q_OBJECT

public:
    RecordsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    QString label() const override { return tr("Changes of signing"); }

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::signing); }

private:
    void update();
};

}  // namespace app
