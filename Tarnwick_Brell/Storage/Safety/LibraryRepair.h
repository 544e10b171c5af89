#pragma once

#include <filesystem>

#include "NewsroomKit/Records/Instant.h"

namespace app {

struct Repair {
    std::filesystem::path setAside{};  ///< the new path of the old library
    std::size_t stories = 0;           ///< in the repaired library
};

/// Makes a sound library from the tables of a damaged one: copies every row into a new file, whose
/// indexes are rebuilt. The old library is set aside and never deleted. The caller must hold
/// lockLibraryExclusively(). Throws StoreError, with nothing changed, when a table itself is
/// damaged or the library is of another version.
Repair repairLibrary(const std::filesystem::path& library, kit::Instant now);

/// Like repairLibrary, but into the new file `copy`. Leaves nothing of it when it throws.
void copyTables(const std::filesystem::path& library, const std::filesystem::path& copy);

}  // namespace app
