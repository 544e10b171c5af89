#pragma once

#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

enum class LibraryState {
    sound,
    damaged,
    newerVersion,  ///< written by a newer desk; this program can't use it
    absent         ///< no file, or one without tables yet
};

/// How thoroughly a library is checked. The times are for 300,000 stories.
enum class CheckDepth {
    quick,  ///< the structure of every page: a third of a second
    full    ///< also that all indexes and the search index fit their tables: two seconds
};

struct LibraryFindings {
    LibraryState state = LibraryState::absent;
    std::string fault{};      ///< the first fault of a damaged library, in SQLite's words
    std::string unchecked{};  ///< a sentence about what a full check had to leave out
};

/// Reads the whole file while others may use it, and changes nothing. The full check needs room for
/// a copy in the folder for temporary files. Throws StoreError when the file can't be read at all,
/// or when it is stopped.
LibraryFindings checkLibrary(const std::filesystem::path& library, CheckDepth depth,
                             const std::stop_token& stop = {});

/// DeskState's key for the time of the last successful check.
inline constexpr std::string_view kLastCheck = "lastCheck";

/// For a long-lived desk at its start: a quick check when the previous desk was killed or the last
/// check is more than a day old; records its time. Uses connections of its own, so it may run on
/// any thread; a stopped check finds nothing. Throws StoreError when the library is damaged.
void checkIfDue(const std::filesystem::path& library, bool lastDeskDied, kit::Instant now,
                const std::stop_token& stop = {});

/// The first fault of an open library, ignoring its search index; nothing when it is sound.
std::optional<std::string> firstFault(Database& database, CheckDepth depth);

/// SQLite needs write access to check a search index, so this takes a private copy.
std::optional<std::string> searchIndexFault(Database& unsharedCopy);

StoreError damagedLibrary(const std::filesystem::path& library, const std::string& fault);

}  // namespace app
