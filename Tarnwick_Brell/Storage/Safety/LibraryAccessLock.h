#pragma once

#include <filesystem>
#include <optional>

#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"

namespace app {

/// The right to write in a library, which any number of programs have at once, by means of the
/// file "library.in-use" beside it. Nothing where that file can't be made: then the library
/// can't be written either, which its opening tells. Waits for a restore that is under way.
std::optional<FileLock> shareLibrary(const std::filesystem::path& library);

/// The right to put another library in its place: nobody writes meanwhile. Waits ten seconds
/// for those who do; throws StoreError when they go on.
FileLock keepLibraryAlone(const std::filesystem::path& library);

}  // namespace app
