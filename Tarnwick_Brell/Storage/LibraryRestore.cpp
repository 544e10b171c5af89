#include "Tarnwick_Brell/Storage/LibraryRestore.h"

#include <system_error>

#include <fmt/chrono.h>

#include "Tarnwick_Brell/Storage/Backups.h"
#include "Tarnwick_Brell/Storage/DurableFiles.h"
#include "Tarnwick_Brell/Storage/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/LibraryCopy.h"
#include "Tarnwick_Brell/Storage/StoreError.h"

namespace desk {

namespace fs = std::filesystem;

namespace {

/// What SQLite keeps beside a library that is in use or was broken off.
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

/// A name beside the library under which nothing lies yet.
fs::path freeName(const fs::path& library, newsroom::Instant now) {
    const auto* why = checkLibrary(library).state == LibraryState::damaged ? "damaged" : "replaced";
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now);
    const auto stem = (library.parent_path() / library.stem()).string();
    for (int attempt = 1;; ++attempt) {
        const auto further = attempt == 1 ? "" : fmt::format("-{}", attempt);
        const fs::path name =
            fmt::format("{}.{}-{:%Y%m%dT%H%M%SZ}{}.sqlite", stem, why, seconds, further);
        if (!isAnythingPresent(name)) return name;
    }
}

/// A log that stayed behind would be played into the library that comes next.
void moveCompanions(const fs::path& library, const fs::path& name) {
    for (const char* ending : kCompanions) {
        const fs::path companion = library.string() + ending;
        if (isPresent(companion)) moveIntoPlace(companion, name.string() + ending);
    }
}

/// Gives the library a second name, so that there is one in its place at every moment; where
/// the file system knows no second names, it moves.
void giveName(const fs::path& library, const fs::path& name) {
    if (!isPresent(library)) return;
    std::error_code error;
    fs::create_hard_link(library, name, error);
    if (error) moveIntoPlace(library, name);
}

/// Copies the first sound backup to `copy`. The reason that the last one failed is thrown when
/// it is the only one.
void copyFirstSound(const std::vector<fs::path>& candidates, const fs::path& copy,
                    Restoration& restoration) {
    for (const auto& candidate : candidates) {
        if (checkLibrary(candidate).state != LibraryState::sound) {
            restoration.unsound.push_back(candidate);
            continue;
        }
        copyLibrary(candidate, copy);
        restoration.from = candidate;
        return;
    }
    throw StoreError(StoreError::Reason::damaged,
                     candidates.size() == 1
                         ? candidates.front().string() + " is no sound library of this desk."
                         : "There is no sound backup of the library.");
}

}  // namespace

Restoration restoreLibrary(const fs::path& library, const std::optional<fs::path>& chosen,
                           newsroom::Instant now) {
    std::vector<fs::path> candidates;
    if (chosen) {
        candidates.push_back(*chosen);
    } else {
        for (const auto& backup : Backups(library).all(now)) candidates.push_back(backup.file);
    }
    Restoration restoration;
    // 1. The copy is whole, checked and on the disk before anything else is touched.
    const fs::path copy = library.string() + ".restoring";
    copyFirstSound(candidates, copy, restoration);
    if (isAnythingPresent(library)) {
        // 2. The old library gets its new name and loses its log.
        restoration.setAside = freeName(library, now);
        giveName(library, *restoration.setAside);
        moveCompanions(library, *restoration.setAside);
    }
    // 3. One step puts the copy in its place.
    moveIntoPlace(copy, library);
    return restoration;
}

std::optional<fs::path> setLibraryAside(const fs::path& library, newsroom::Instant now) {
    if (!isAnythingPresent(library)) return std::nullopt;
    const auto name = freeName(library, now);
    moveCompanions(library, name);
    if (isPresent(library)) moveIntoPlace(library, name);
    return name;
}

}  // namespace desk
