#pragma once

#include <filesystem>
#include <functional>
#include <stop_token>

#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"

namespace app {

/// Copies a library, which others may be using, into a file of its own that needs no log
/// beside it. The copy has passed its check and is safe on the disk when this returns;
/// otherwise nothing is left of it. Throws StoreError: with the reason "damaged" when the copy
/// failed its check, because what was copied is damaged, and when it was stopped. A full check
/// that is stopped after the quick one leaves the copy. `onCopied` is called between the two.
void copyLibrary(const std::filesystem::path& library, const std::filesystem::path& copy,
                 CheckDepth depth, const std::stop_token& stop = {},
                 const std::function<void()>& onCopied = {});

}  // namespace app
