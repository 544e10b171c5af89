#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <variant>
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

/// Reads a list from a file. On failure: a sentence for the user.
std::variant<kit::Outlines, std::string> readOutlineFile(const std::filesystem::path& file);

/// Asked now and then with the number of feeds that have been handled: false gives the import up.
using ImportGoesOn = std::function<bool(std::size_t done)>;

/// Adds what is fresh, all of it or nothing, and returns the new sources. Throws StoreError.
std::vector<kit::NewsSource> applyImport(const ImportPreview& preview, LocalStore& store,
                                         SourceRegistry& registry, const ImportGoesOn& goesOn = {});

/// What other readers take over: the sources that are on and all of the user's own, or the
/// latter alone.
enum class ExportScope { subscribed, own };
bool isInScope(ExportScope scope, const kit::NewsSource& source, bool isOn);

enum class Secrets { withheld, kept };

struct ExportedList {
    kit::Outlines outlines{};
    std::vector<std::string> withheld{};  ///< names of feeds whose address carries a password
};

/// These sources as a list; the catalogue's categories are folders. Where secrets are withheld, a
/// feed whose address carries one is written with its name alone.
ExportedList exportedSources(const std::vector<kit::NewsSource>& sources, Secrets secrets);

}  // namespace app
