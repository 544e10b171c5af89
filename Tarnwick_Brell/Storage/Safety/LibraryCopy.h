#pragma once

#include <filesystem>
#include <functional>

#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/Safety/WorkWatch.h"

namespace app {

/// Copies a library, which others may be using, into a file that needs no log beside it. When this
/// returns, the copy has passed its check and is flushed to the disk; otherwise nothing is left of
/// it. Throws StoreError when it is stopped, and with the reason "damaged" when the copy, and so
/// the library, is damaged. A full check that is stopped after the quick one leaves the copy.
/// `onCopied` is called between the two.
void copyLibrary(const std::filesystem::path& library, const std::filesystem::path& copy,
                 CheckDepth depth, const WorkWatch& watch = {},
                 const std::function<void()>& onCopied = {});

}  // namespace app
