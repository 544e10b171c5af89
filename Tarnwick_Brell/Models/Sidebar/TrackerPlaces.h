#pragma once

#include <string_view>
#include <vector>

#include <QString>

#include "NewsroomKit/Newsrooms/PanelKind.h"
#include "Tarnwick_Brell/Models/Newsrooms/DeskPage.h"

namespace desk {

/// A tracker of the sidebar: it has a page of its own.
struct TrackerPlace {
    std::string_view id;
    const char* title;
    std::string_view symbol;
    std::vector<PanelContent::Kind> panels;
};

/// In the order of the sidebar.
const std::vector<TrackerPlace>& trackerPlaces();

QString titleOf(const TrackerPlace& place);

/// The page, or the page of one panel kind alone.
DeskPage pageOf(const TrackerPlace& place);
DeskPage pageOf(newsroom::PanelKind kind);

}  // namespace desk
