#pragma once

#include <string_view>
#include <vector>

#include <QString>

#include "Tarnwick_Brell/Models/Newsrooms/BuiltInPage.h"

namespace app {

/// A tracker of the sidebar: it has a page of its own.
struct TrackerPage {
    std::string_view id;
    const char* title;
    std::string_view symbol;
    std::vector<PageContent> panels;
};

/// In the order of the sidebar.
const std::vector<TrackerPage>& trackerPages();

QString titleOf(const TrackerPage& page);

/// The page, or the page of one panel kind alone.
BuiltInPage pageOf(const TrackerPage& page);
BuiltInPage pageOf(kit::PanelKind kind);

}  // namespace app
