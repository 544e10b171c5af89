#pragma once

#include "Tarnwick_Brell/Models/Panels/ChangesPanelModel.h"

namespace app {

/// What came into Apple's update catalogue and what went, the last seen first, and below it the
/// newest offer for each platform.
class BackendPanelModel final : public ChangesPanelModel {
    Q_OBJECT

public:
    BackendPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    QString label() const override { return tr("Updates that Apple offers"); }

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::updates); }

private:
    void update();
};

}  // namespace app
