#pragma once

#include <memory>

#include "Tarnwick_Brell/Models/Panels/PanelModel.h"

namespace app {

/// The content of a panel, by its kind. `query` is the one that holds for it: its own or the
/// newsroom's. Never null.
std::unique_ptr<PanelModel> makePanelContent(const PanelStores& stores, const kit::PanelSpec& panel,
                                             const kit::StoryQuery& query);

/// Panels that show stories of the wire; null for other kinds.
std::unique_ptr<PanelModel> makeStoryPanel(const PanelStores& stores, const kit::PanelSpec& panel,
                                           const kit::StoryQuery& query);

/// Panels that show trackers; null for other kinds.
std::unique_ptr<PanelModel> makeTrackerPanel(const PanelStores& stores,
                                             const kit::PanelSpec& panel);

/// What only pages of the desk itself show. Never null.
std::unique_ptr<PanelModel> makePageContent(const PanelStores& stores, PanelModel::Kind kind);

}  // namespace app
