#include "Tarnwick_Brell/Storage/LocalStore.h"

#include "Tarnwick_Brell/Storage/Schema.h"

namespace desk {

LocalStore::LocalStore(const std::filesystem::path& file, Database::Access access)
    : database_(file, access), stories_(database_), sources_(database_), validators_(database_) {
    if (access == Database::Access::readWrite) {
        migrate(database_);
    } else {
        requireCurrentSchema(database_);
    }
}

}  // namespace desk
