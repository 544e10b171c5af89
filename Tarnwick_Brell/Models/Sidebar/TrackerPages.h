#pragma once

#include <string_view>
#include <vector>

#include <QString>

namespace app {

/// A tracker of the sidebar: it has a page of its own.
struct TrackerPage {
    std::string_view id;
    const char* title;
    std::string_view symbol;
};

/// In the order of the sidebar.
const std::vector<TrackerPage>& trackerPages();

QString titleOf(const TrackerPage& page);

}  // namespace app
