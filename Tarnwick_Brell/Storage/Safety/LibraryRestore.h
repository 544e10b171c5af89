#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Safety/WorkWatch.h"

namespace app {

struct Restoration {
    std::filesystem::path from{};                     ///< the restored backup
    std::optional<std::filesystem::path> setAside{};  ///< the new path of the old library
    std::vector<std::filesystem::path> unsound{};     ///< newer backups that failed their check
};

/// Replaces the library by a copy of the newest backup that passes its check, or of `chosen`. The
/// old library, with its log, is set aside under a new name and never deleted. An interrupted run
/// leaves either library in place and can be repeated. The caller must hold the LibraryLock. Throws
/// StoreError, with the library unchanged, when no backup is sound or it is stopped.
Restoration restoreLibrary(const std::filesystem::path& library,
                           const std::optional<std::filesystem::path>& chosen, kit::Instant now,
                           const WorkWatch& watch = {});

/// Sets the library aside, so that the next program begins an empty one. Nothing when there is
/// none.
std::optional<std::filesystem::path> quarantineLibrary(const std::filesystem::path& library,
                                                       kit::Instant now);

/// Replaces the library by `copy`, a sound library beside it, as restoreLibrary does. Returns the
/// new path of the old one, if there was one. Removes the copy and throws StoreError when it is
/// stopped before it begins.
std::optional<std::filesystem::path> putInPlace(const std::filesystem::path& copy,
                                                const std::filesystem::path& library,
                                                kit::Instant now, const std::stop_token& stop);

}  // namespace app
