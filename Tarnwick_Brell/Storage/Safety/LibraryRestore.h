#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "NewsroomKit/Records/Instant.h"

namespace app {

struct Restoration {
    std::filesystem::path from{};                     ///< the backup that is the library now
    std::optional<std::filesystem::path> setAside{};  ///< where the library went that was there
    std::vector<std::filesystem::path> unsound{};     ///< newer backups that failed their check
};

/// Puts a copy of the newest backup that passes its check, or of `chosen`, in the library's
/// place. What was there, with its log, is set aside under a name of its own and never
/// deleted. A run that breaks off leaves either library in place, and can be repeated. For
/// whoever holds the LibraryLock. Throws StoreError when no backup is sound; the library is
/// then left alone.
Restoration restoreLibrary(const std::filesystem::path& library,
                           const std::optional<std::filesystem::path>& chosen, kit::Instant now);

/// Sets the library aside, so that the next one that opens it begins an empty one. Nothing
/// when there is none.
std::optional<std::filesystem::path> quarantineLibrary(const std::filesystem::path& library,
                                                       kit::Instant now);

/// Puts `copy`, a sound library of its own beside it, in the library's place, as restoreLibrary
/// does. Where the old one went, if there was one.
std::optional<std::filesystem::path> putInPlace(const std::filesystem::path& copy,
                                                const std::filesystem::path& library,
                                                kit::Instant now);

}  // namespace app
