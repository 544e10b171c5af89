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
    newerVersion,  ///< of the desk: may be sound, but not for this program
    absent         ///< no file, or one that was broken off before its first table
};

/// How closely a library is looked at. The times are for 300,000 stories.
enum class CheckDepth {
    quick,  ///< the structure of every page: a third of a second
    full    ///< also that all indexes and the search index fit their tables: two seconds
};

struct LibraryFindings {
    LibraryState state = LibraryState::absent;
    std::string fault{};      ///< what the check met first in a damaged library, in SQLite's words
    std::string unchecked{};  ///< a sentence on what a full check had to leave out
};

/// Reads the whole file beside those who use it, and changes nothing. The full check needs room
/// for a copy in the folder for temporary files. Throws StoreError when the file can't be read
/// at all, or when it is stopped.
LibraryFindings checkLibrary(const std::filesystem::path& library, CheckDepth depth,
                             const std::stop_token& stop = {});

/// DeskState's name for when the library was last found sound.
inline constexpr std::string_view kLastCheck = "lastCheck";

/// For a long-lived desk at its start: a quick check when the desk before it was broken off, or
/// when the last check lies more than a day away, which it notes. Has connections of its own, so
/// any thread may do it; a stopped check finds nothing. Throws StoreError when the library is
/// damaged.
void checkIfDue(const std::filesystem::path& library, bool lastDeskDied, kit::Instant now,
                const std::stop_token& stop = {});

/// What is wrong with an open library, its search index left aside; nothing when it is sound.
std::optional<std::string> firstFault(Database& database, CheckDepth depth);

/// SQLite checks a search index as if it wrote, so this takes a copy that nobody else uses.
std::optional<std::string> searchIndexFault(Database& unsharedCopy);

StoreError damagedLibrary(const std::filesystem::path& library, const std::string& fault);

}  // namespace app
