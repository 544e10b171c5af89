#pragma once

#include <filesystem>
#include <system_error>

namespace app {

// What a user reads and saves is private: folders of the desk have the mode 0700 and files 0600,
// whatever the umask is.

/// Creates a folder and its parents, unless it exists.
std::error_code makePrivateFolder(const std::filesystem::path& folder);

/// Creates an empty file, or removes other users' rights from an existing one. Failures are left to
/// the code that opens the file. Never opens the file, because closing it would drop the locks that
/// SQLite holds on it in the same process.
void makePrivateFile(const std::filesystem::path& file);

/// Removes other users' rights from a file or folder that belongs to this user; others stay
/// unchanged.
void restrictToOwner(const std::filesystem::path& path);

}  // namespace app
