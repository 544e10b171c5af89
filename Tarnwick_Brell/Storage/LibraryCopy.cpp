#include "Tarnwick_Brell/Storage/LibraryCopy.h"

#include <system_error>

#include "Tarnwick_Brell/Storage/Database.h"
#include "Tarnwick_Brell/Storage/DurableFiles.h"
#include "Tarnwick_Brell/Storage/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/StoreError.h"

namespace desk {

namespace fs = std::filesystem;

void copyLibrary(const fs::path& library, const fs::path& copy, const std::stop_token& stop) {
    const auto removeCopy = [&copy] {
        std::error_code ignored;
        fs::remove(copy, ignored);
    };
    removeCopy();
    try {
        Database source(library, Database::Access::readOnly);
        Database target(copy, Database::Access::unshared);
        source.copyInto(target, stop);
        target.breakOffWhen(stop);
        if (const auto fault = firstFault(target)) throw damagedLibrary(library, *fault);
    } catch (const StoreError&) {
        removeCopy();
        throw;
    }
    makeDurable(copy);
}

}  // namespace desk
