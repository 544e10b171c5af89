#pragma once

#include <memory>
#include <variant>

#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"

namespace app {

/// The builds that Apple signs now.
struct SignedBuilds {};

/// What a page of the desk itself shows: the content of a newsroom's panel, or something that only
/// pages show.
using PageContent = std::variant<kit::PanelKind, SignedBuilds, kit::AppStoreCharts::Kind>;

/// The model of a panel. `query` is the one that holds for it: its own or the newsroom's. Never
/// null.
std::unique_ptr<PanelModel> makePanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                           const kit::StoryQuery& query);

/// The model of a part of a page. Never null.
std::unique_ptr<PanelModel> makePageModel(const PanelStores& stores, const PageContent& content);

}  // namespace app
