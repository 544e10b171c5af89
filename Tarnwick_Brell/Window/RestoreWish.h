#pragma once

#include <filesystem>
#include <optional>

#include <QString>

#include "NewsroomKit/Records/Instant.h"

namespace app {

/// A backup that the user wants to go back to. The desk closes for it and opens again.
struct RestoreWish {
    std::optional<std::filesystem::path> backup{};
    QString outcome{};  ///< of the last one, as a sentence for the user
};

/// Fulfils the wish for a library that no desk of this process has open. When it fails the library
/// is as it was; either way `outcome` says what happened.
void fulfil(RestoreWish& wish, const std::filesystem::path& library, kit::Instant now);

}  // namespace app
