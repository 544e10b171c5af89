#pragma once

#include <filesystem>
#include <optional>

namespace app {

/// Where one user's desk keeps its files.
struct Paths {
    std::filesystem::path library;   ///< the SQLite file
    std::filesystem::path settings;  ///< key-value, INI
    std::filesystem::path log;       ///< lines of text; its folder is made when it is written to

    /// By the XDG base directories, or everything in `dataDir` when one is named.
    static Paths forUser(const std::optional<std::filesystem::path>& dataDir);

    /// Makes the folders of both files, for this user alone, and takes other users' rights away
    /// from what earlier versions made with them. Throws StoreError.
    void createFolders() const;
};

}  // namespace app
