#include "Tarnwick_Brell/Storage/Safety/LibraryRestore.h"

#include <system_error>

#include <fmt/chrono.h>

#include "Tarnwick_Brell/Storage/Safety/Backups.h"
#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCopy.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRepair.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace fs = std::filesystem;

namespace {

/// SQLite's files beside a library that is in use or was not closed properly.
constexpr const char* kCompanions[] = {"-wal", "-shm"};

bool isPresent(const fs::path& file) {
    std::error_code ignored;
    return fs::symlink_status(file, ignored).type() != fs::file_type::not_found;
}

bool isAnythingPresent(const fs::path& library) {
    bool present = isPresent(library);
    for (const char* ending : kCompanions)
        present = present || isPresent(library.string() + ending);
    return present;
}

/// An unused name beside the library.
fs::path freeName(const fs::path& library, kit::Instant now) {
    const bool isDamaged = checkLibrary(library, CheckDepth::full).state == LibraryState::damaged;
    const auto* why = isDamaged ? "damaged" : "replaced";
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now);
    const auto stem = (library.parent_path() / library.stem()).string();
    for (int attempt = 1;; ++attempt) {
        const auto further = attempt == 1 ? "" : fmt::format("-{}", attempt);
        const fs::path name =
            fmt::format("{}.{}-{:%Y%m%dT%H%M%SZ}{}.sqlite", stem, why, seconds, further);
        if (!isAnythingPresent(name)) return name;
    }
}

/// A log left behind would be applied to the next library.
void moveCompanions(const fs::path& library, const fs::path& name) {
    for (const char* ending : kCompanions) {
        const fs::path companion = library.string() + ending;
        if (isPresent(companion)) moveIntoPlace(companion, name.string() + ending);
    }
}

/// Adds a hard link, so that a library is in place at every moment; moves the file where the file
/// system has no hard links.
void giveName(const fs::path& library, const fs::path& name) {
    if (!isPresent(library)) return;
    std::error_code error;
    fs::create_hard_link(library, name, error);
    if (error) moveIntoPlace(library, name);
}

bool copyIfSound(const fs::path& candidate, const fs::path& copy, const WorkWatch& watch) {
    if (checkLibrary(candidate, CheckDepth::full, watch.stop).state != LibraryState::sound)
        return false;
    copyLibrary(candidate, copy, CheckDepth::quick, watch);
    return true;
}

/// A copy from an earlier version may have faults in its indexes, which that version did not check.
bool copyIfRepairable(const fs::path& candidate, const fs::path& copy, const WorkWatch& watch) {
    if (checkLibrary(candidate, CheckDepth::quick, watch.stop).state != LibraryState::sound)
        return false;
    try {
        copyTables(candidate, copy, watch);
    } catch (const StoreError& error) {
        if (error.reason() != StoreError::Reason::damaged &&
            error.reason() != StoreError::Reason::olderVersion) {
            throw;
        }
        return false;
    }
    return true;
}

/// Copies the first sound backup to `copy`, or the first repairable one when none is sound.
void copyFirstSound(const std::vector<fs::path>& candidates, const fs::path& copy,
                    Restoration& restoration, const WorkWatch& watch) {
    for (const auto attempt : {copyIfSound, copyIfRepairable}) {
        restoration.unsound.clear();
        for (const auto& candidate : candidates) {
            if (attempt(candidate, copy, watch)) {
                restoration.from = candidate;
                return;
            }
            restoration.unsound.push_back(candidate);
        }
    }
    throw StoreError(StoreError::Reason::damaged,
                     candidates.size() == 1
                         ? candidates.front().string() + " is not a sound library of this desk."
                         : "There is no sound backup of the library.");
}

}  // namespace

Restoration restoreLibrary(const fs::path& library, const std::optional<fs::path>& chosen,
                           kit::Instant now, const WorkWatch& watch) {
    std::vector<fs::path> candidates;
    if (chosen) {
        candidates.push_back(*chosen);
    } else {
        for (const auto& backup : Backups(library).all(now)) candidates.push_back(backup.file);
    }
    Restoration restoration;
    // 1. Make a complete copy, checked and flushed to the disk, before touching anything else.
    const fs::path copy = library.string() + ".restoring";
    copyFirstSound(candidates, copy, restoration, watch);
    // 2. Put it in the library's place.
    restoration.setAside = putInPlace(copy, library, now, watch.stop);
    return restoration;
}

std::optional<fs::path> putInPlace(const fs::path& copy, const fs::path& library, kit::Instant now,
                                   const std::stop_token& stop) {
    if (stop.stop_requested()) {
        std::error_code ignored;
        fs::remove(copy, ignored);
        throw StoreError(StoreError::Reason::other, "The work on the library was given up.");
    }
    std::optional<fs::path> setAside;
    if (isAnythingPresent(library)) {
        // 1. Rename the old library, together with its log.
        setAside = freeName(library, now);
        giveName(library, *setAside);
        moveCompanions(library, *setAside);
    }
    // 2. Put the copy in its place atomically.
    moveIntoPlace(copy, library);
    return setAside;
}

std::optional<fs::path> quarantineLibrary(const fs::path& library, kit::Instant now) {
    if (!isAnythingPresent(library)) return std::nullopt;
    const auto name = freeName(library, now);
    moveCompanions(library, name);
    if (isPresent(library)) moveIntoPlace(library, name);
    return name;
}

}  // namespace app
