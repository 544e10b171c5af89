#pragma once

#include <vector>

#include "NewsroomKit/Library/Clip.h"
#include "Tarnwick_Brell/Models/Panels/ChangesPanelModel.h"

namespace app {

/// The latest passages that the user clipped, each with where it is from.
class ClipsPanelModel final : public ChangesPanelModel {
    Q_OBJECT

public:
    ClipsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    QString label() const override { return tr("Clips"); }

    void tick() override { read(); }
    void retry() override { read(); }

private:
    void read();
    void show(const std::vector<kit::Clip>& clips);
};

}  // namespace app
