#pragma once

#include <filesystem>
#include <optional>

namespace app {

/// The locations of one user's files.
struct Paths {
    std::filesystem::path library;   ///< the SQLite file
    std::filesystem::path settings;  ///< key-value, INI
    std::filesystem::path log;       ///< lines of text; its folder is created on writing
    std::filesystem::path pictures;  ///< a folder that may be deleted, created on writing

    /// In the XDG base directories, or all in `dataDir` if given.
    static Paths forUser(const std::optional<std::filesystem::path>& dataDir);

    /// Creates the folders of library and settings for this user alone, and removes other users'
    /// rights from files of earlier versions. Throws StoreError.
    void createFolders() const;
};

/// The folder of all programs' settings, by XDG.
std::filesystem::path configFolder();

}  // namespace app
