#pragma once

#include <string_view>
#include <vector>

#include <QString>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace desk {

/// A tracker of the sidebar: its page is a newsroom that nobody has to make.
struct TrackerPlace {
    std::string_view id;
    const char* title;
    std::string_view symbol;
    std::vector<newsroom::PanelKind> panels;
};

/// In the order of the sidebar.
const std::vector<TrackerPlace>& trackerPlaces();

QString titleOf(const TrackerPlace& place);

/// The page, or the page of one panel kind alone.
newsroom::NewsroomSpec pageOf(const TrackerPlace& place);
newsroom::NewsroomSpec pageOf(newsroom::PanelKind kind);

}  // namespace desk
