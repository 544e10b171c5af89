#include "Tarnwick_Brell/Storage/LocalStore.h"

#include "Tarnwick_Brell/Storage/Schema.h"

namespace desk {

bool LocalStore::exists(const std::filesystem::path& file) {
    if (!std::filesystem::exists(file)) return false;
    Database database(file, Database::Access::readOnly);
    return !isUnmigrated(database);
}

LocalStore::LocalStore(const std::filesystem::path& file, Database::Access access)
    : database_(file, access),
      stories_(database_),
      sources_(database_),
      validators_(database_),
      state_(database_),
      hostPauses_(database_) {
    if (access == Database::Access::readWrite) {
        migrate(database_);
    } else {
        requireCurrentSchema(database_);
    }
}

}  // namespace desk
