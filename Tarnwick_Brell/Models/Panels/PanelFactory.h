#pragma once

#include <memory>

#include "Tarnwick_Brell/Models/Panels/PanelModel.h"

namespace app {

/// The model of a panel. `query` is the one that holds for it: its own or the newsroom's. Never
/// null.
std::unique_ptr<PanelModel> makePanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                           const kit::StoryQuery& query);

}  // namespace app
