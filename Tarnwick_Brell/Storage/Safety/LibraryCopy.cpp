#include "Tarnwick_Brell/Storage/Safety/LibraryCopy.h"

#include <system_error>

#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace fs = std::filesystem;

namespace {

/// Throws when the copy is damaged. A stopped full check has found nothing.
void checkIndexes(Database& copy, const fs::path& library, const std::stop_token& stop) {
    try {
        auto fault = firstFault(copy, CheckDepth::full);
        if (!fault) fault = searchIndexFault(copy);
        if (fault) throw damagedLibrary(library, *fault);
    } catch (const StoreError&) {
        if (!stop.stop_requested()) throw;
    }
}

}  // namespace

void copyLibrary(const fs::path& library, const fs::path& copy, CheckDepth depth,
                 const WorkWatch& watch, const std::function<void()>& onCopied) {
    const auto removeCopy = [&copy] {
        std::error_code ignored;
        fs::remove(copy, ignored);
    };
    removeCopy();
    try {
        Database source(library, Database::Access::readOnly);
        Database target(copy, Database::Access::unshared);
        source.copyInto(target, watch.stop, watch.progress);
        target.breakOffWhen(watch.stop);
        if (const auto fault = firstFault(target, CheckDepth::quick)) {
            throw damagedLibrary(library, *fault);
        }
        if (onCopied) onCopied();
        if (depth == CheckDepth::full) checkIndexes(target, library, watch.stop);
    } catch (const StoreError&) {
        removeCopy();
        throw;
    }
    makeDurable(copy);
}

}  // namespace app
