#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Outlines/Outlines.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/SourceRoster.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace desk {

/// What importing a list of feeds would do, for the user to see before anything changes.
struct ImportPreview {
    struct Known {
        newsroom::OutlineFeed feed{};
        newsroom::NewsSource source{};  ///< that has the feed already
    };

    std::string title{};                         ///< of the list
    std::vector<newsroom::OutlineFeed> fresh{};  ///< would be added
    std::vector<Known> known{};
    std::vector<newsroom::SkippedOutline> refused{};
};

ImportPreview previewImport(newsroom::Outlines outlines, const SourceRoster& roster);

/// Adds what is fresh, all of it or nothing, and returns the new sources. Throws StoreError.
std::vector<newsroom::NewsSource> applyImport(const ImportPreview& preview, LocalStore& store,
                                              SourceRoster& roster);

/// What other readers take over: the sources that are on and all of the user's own, or the
/// latter alone. The catalogue's categories are folders.
enum class ExportScope { subscribed, own };
newsroom::Outlines exportedSources(const SourceRoster& roster, ExportScope scope);

}  // namespace desk
