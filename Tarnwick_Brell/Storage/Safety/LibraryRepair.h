#pragma once

#include <filesystem>

#include "NewsroomKit/Records/Instant.h"

namespace app {

struct Repair {
    std::filesystem::path setAside{};  ///< where the library went that was there
    std::size_t stories = 0;           ///< in the library that took its place
};

/// Makes a sound library from the tables of a damaged one: every row is copied into a new file,
/// whose indexes are made anew. What was there is set aside and never deleted. For whoever has
/// the library alone (keepLibraryAlone). Throws StoreError, with nothing changed, when a table
/// itself is damaged or the library is of another version.
Repair repairLibrary(const std::filesystem::path& library, kit::Instant now);

/// As repairLibrary, into the new file `copy`. Nothing is left of it when this throws.
void copyTables(const std::filesystem::path& library, const std::filesystem::path& copy);

}  // namespace app
