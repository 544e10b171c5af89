#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Outlines/Outlines.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"

namespace app {

class LocalStore;

/// What importing a list of feeds would do, for the user to see before anything changes.
struct ImportPreview {
    struct Known {
        kit::OutlineFeed feed{};
        kit::NewsSource source{};  ///< that has the feed already
    };

    std::string title{};                    ///< of the list
    std::vector<kit::OutlineFeed> fresh{};  ///< would be added
    std::vector<Known> known{};
    std::vector<kit::SkippedOutline> refused{};
};

ImportPreview previewImport(kit::Outlines outlines, const SourceRegistry& registry);

/// Adds what is fresh, all of it or nothing, and returns the new sources. Throws StoreError.
std::vector<kit::NewsSource> applyImport(const ImportPreview& preview, LocalStore& store,
                                         SourceRegistry& registry);

/// What other readers take over: the sources that are on and all of the user's own, or the
/// latter alone. The catalogue's categories are folders.
enum class ExportScope { subscribed, own };
kit::Outlines exportedSources(const SourceRegistry& registry, ExportScope scope);

}  // namespace app
