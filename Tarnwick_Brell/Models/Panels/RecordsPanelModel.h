#pragma once

#include "Tarnwick_Brell/Models/Panels/SignalsPanelModel.h"

namespace app {

/// Firmware that Apple began or stopped to sign, the last seen first. A build counts once, for
/// however many models it changed.
class RecordsPanelModel final : public SignalsPanelModel {
    Q_OBJECT

public:
    RecordsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    QString label() const override { return tr("Changes of signing"); }

    void tick() override { look(); }
    void retry() override { trackers().refresh(Tracker::signing); }

private:
    void look();
};

}  // namespace app
