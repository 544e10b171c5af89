#pragma once

#include <filesystem>

#include "Tarnwick_Brell/Storage/Database.h"
#include "Tarnwick_Brell/Storage/SourceTable.h"
#include "Tarnwick_Brell/Storage/StoryTable.h"
#include "Tarnwick_Brell/Storage/ValidatorStore.h"

namespace desk {

/// The library: one SQLite file with the stories, the user's sources, their status and the
/// validators of their last answers. Used by one thread. Throws StoreError.
class LocalStore {
public:
    LocalStore(const std::filesystem::path& file, Database::Access access);

    /// Whether the file has a library in it: not one that was broken off before its first
    /// table. Throws StoreError when it can't be read.
    static bool exists(const std::filesystem::path& file);

    StoryTable& stories() { return stories_; }
    SourceTable& sources() { return sources_; }
    ValidatorStore& validators() { return validators_; }

    [[nodiscard]] Transaction transaction() { return Transaction(database_); }

private:
    Database database_;
    StoryTable stories_;
    SourceTable sources_;
    ValidatorStore validators_;
};

}  // namespace desk
