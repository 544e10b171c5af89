#include "Tarnwick_Brell/Storage/LocalStore.h"

#include <utility>

#include "Tarnwick_Brell/Storage/Backups.h"
#include "Tarnwick_Brell/Storage/Schema.h"

namespace desk {

bool LocalStore::exists(const std::filesystem::path& file) {
    if (!std::filesystem::exists(file)) return false;
    Database database(file, Database::Access::readOnly);
    return !isUnmigrated(database);
}

std::int64_t LocalStore::version() { return versionOf(database_); }

LocalStore::LocalStore(const std::filesystem::path& file, Database::Access access)
    : database_(file, access),
      stories_(database_),
      search_(database_),
      marks_(database_),
      sources_(database_),
      validators_(database_),
      state_(database_),
      hostPauses_(database_) {
    if (access == Database::Access::readWrite) {
        if (isOutdated(database_)) Backups(file).makeBeforeMigration();
        migrate(database_);
    } else {
        requireCurrentSchema(database_);
    }
}

bool LocalStore::hasForeignChanges() {
    Statement row(database_, "PRAGMA data_version");
    row.step();
    return std::exchange(dataVersion_, row.number(0)) != dataVersion_;
}

}  // namespace desk
