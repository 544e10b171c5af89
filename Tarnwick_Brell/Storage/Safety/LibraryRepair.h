#pragma once

#include <filesystem>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Safety/WorkWatch.h"

namespace app {

struct Repair {
    std::filesystem::path setAside{};  ///< the new path of the old library
    std::size_t stories = 0;           ///< in the repaired library
};

/// Makes a sound library from the tables of a damaged one: copies every row into a new file, whose
/// indexes are rebuilt. The old library is set aside and never deleted. The caller must hold
/// lockLibraryExclusively(). Throws StoreError, with nothing changed, when a table itself is
/// damaged, the library is of another version, or it is stopped.
Repair repairLibrary(const std::filesystem::path& library, kit::Instant now,
                     const WorkWatch& watch = {});

/// What a repair would keep.
struct RepairPreview {
    std::size_t stories = 0;
    std::size_t saved = 0;
    std::size_t newsrooms = 0;
    std::size_t beats = 0;
    std::size_t ownSources = 0;
};

/// Repairs a copy and removes it again; the library may be in use. Throws as repairLibrary does.
RepairPreview previewRepair(const std::filesystem::path& library, const WorkWatch& watch);

/// Like repairLibrary, but into the new file `copy`. Leaves nothing of it when it throws.
void copyTables(const std::filesystem::path& library, const std::filesystem::path& copy,
                const WorkWatch& watch = {});

}  // namespace app
