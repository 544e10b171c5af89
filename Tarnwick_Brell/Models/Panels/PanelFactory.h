#pragma once

#include <memory>

#include "Tarnwick_Brell/Models/Panels/PanelContent.h"

namespace desk {

/// The content of a panel, by its kind. `query` is the one that holds for it: its own or the
/// newsroom's. Never null.
std::unique_ptr<PanelContent> makePanelContent(const PanelStores& stores,
                                               const newsroom::PanelSpec& panel,
                                               const newsroom::StoryQuery& query);

/// Panels that show stories of the wire; null for other kinds.
std::unique_ptr<PanelContent> makeStoryPanel(const PanelStores& stores,
                                             const newsroom::PanelSpec& panel,
                                             const newsroom::StoryQuery& query);

/// Panels that show trackers; null for other kinds.
std::unique_ptr<PanelContent> makeTrackerPanel(const PanelStores& stores,
                                               const newsroom::PanelSpec& panel);

/// What only pages of the desk itself show. Never null.
std::unique_ptr<PanelContent> makePageContent(const PanelStores& stores, PanelContent::Kind kind);

}  // namespace desk
