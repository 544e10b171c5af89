#pragma once

#include <filesystem>

namespace app {

/// What is to be done with a library, which no desk may have open meanwhile.
struct LibraryWork {
    enum class Kind { repair, restore };

    Kind kind = Kind::restore;
    std::filesystem::path backup{};  ///< to be restored; empty: the newest sound one
    /// The user knows what a repair keeps.
    bool isConfirmed = false;

    bool operator==(const LibraryWork&) const = default;
};

}  // namespace app
