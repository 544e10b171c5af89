#pragma once

#include <filesystem>
#include <optional>

#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"

namespace app {

/// A shared lock for writing in a library, on the file "library.in-use" beside it. Nothing when
/// that file can't be created: then the library can't be written either, as opening it reports.
/// Waits for a restore under way.
std::optional<FileLock> shareLibrary(const std::filesystem::path& library);

/// An exclusive lock for replacing the library. Waits ten seconds for programs that are writing,
/// then throws StoreError.
FileLock lockLibraryExclusively(const std::filesystem::path& library);

}  // namespace app
