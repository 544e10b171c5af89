#pragma once

#include <string>
#include <vector>

#include "Tarnwick_Brell/Models/Panels/ChangesPanelModel.h"

namespace app {

/// The pages that the panel follows, the last changed first, and what changed on each.
class PageWatchPanelModel final : public ChangesPanelModel {
    Q_OBJECT

public:
    PageWatchPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    QString label() const override { return tr("Followed pages"); }

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::pages); }

private:
    void update();

    std::vector<std::string> addresses_;
};

}  // namespace app
