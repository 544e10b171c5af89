#pragma once

#include <filesystem>
#include <system_error>

namespace app {

// What a user reads and saves is nobody else's business: folders of the desk have the mode 0700
// and files 0600, whatever the umask is.

/// Makes a folder, with those above it, unless it is there already.
std::error_code makePrivateFolder(const std::filesystem::path& folder);

/// Makes an empty file, or takes other users' rights away from the one that is there. What fails
/// is left to whoever opens the file. Nothing is opened here: closing a file drops the locks that
/// SQLite holds on it in the same process.
void makePrivateFile(const std::filesystem::path& file);

/// Takes other users' rights away from a file or folder that belongs to this user. Anything else
/// stays as it is.
void takeOthersRights(const std::filesystem::path& path);

}  // namespace app
