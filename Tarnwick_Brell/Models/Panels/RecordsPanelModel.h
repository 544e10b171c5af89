#pragma once

#include "Tarnwick_Brell/Models/Panels/ChangesPanelModel.h"

namespace app {

/// Firmware that Apple began or stopped to sign, filings, trades, entries of courts, press
/// releases.
class RecordsPanelModel final : public ChangesPanelModel {
    Q_OBJECT

public:
    RecordsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    QString label() const override { return tr("Records"); }

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::signing); }

private:
    void update();
};

}  // namespace app
