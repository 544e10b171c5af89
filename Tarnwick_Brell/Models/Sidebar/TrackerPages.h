#pragma once

#include <string_view>
#include <vector>

#include <QString>

#include "NewsroomKit/Newsrooms/PanelKind.h"
#include "Tarnwick_Brell/Models/Newsrooms/BuiltInPage.h"

namespace app {

/// A tracker of the sidebar: it has a page of its own.
struct TrackerPage {
    std::string_view id;
    const char* title;
    std::string_view symbol;
    std::vector<PanelModel::Kind> panels;
};

/// In the order of the sidebar.
const std::vector<TrackerPage>& trackerPlaces();

QString titleOf(const TrackerPage& place);

/// The page, or the page of one panel kind alone.
BuiltInPage pageOf(const TrackerPage& place);
BuiltInPage pageOf(kit::PanelKind kind);

}  // namespace app
