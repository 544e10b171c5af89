#pragma once

#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Database.h"
#include "Tarnwick_Brell/Storage/StoreError.h"

namespace desk {

enum class LibraryState {
    sound,
    damaged,
    newerVersion,  ///< of the desk: may be sound, but not for this program
    absent         ///< no file, or one that was broken off before its first table
};

struct LibraryFindings {
    LibraryState state = LibraryState::absent;
    std::string fault{};  ///< what the check met first in a damaged library, in SQLite's words
};

/// Reads the whole file (half a second for 300,000 stories) beside those who use it, and
/// changes nothing. Throws StoreError when the file can't be read at all, or when it is
/// stopped.
LibraryFindings checkLibrary(const std::filesystem::path& library,
                             const std::stop_token& stop = {});

/// DeskState's name for when the library was last found sound.
inline constexpr std::string_view kLastCheck = "lastCheck";

/// For a long-lived desk at its start: checks the library when the desk before it was broken
/// off, or when the last check lies more than a day away, and notes that. Has connections of
/// its own, so any thread may do it; a stopped check finds nothing. Throws StoreError when the
/// library is damaged.
void checkIfDue(const std::filesystem::path& library, bool lastDeskDied, newsroom::Instant now,
                const std::stop_token& stop = {});

/// What is wrong with the structure of an open library; nothing when it is sound.
std::optional<std::string> firstFault(Database& database);

StoreError damagedLibrary(const std::filesystem::path& library, const std::string& fault);

}  // namespace desk
