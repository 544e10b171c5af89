#include "Tarnwick_Brell/Window/RestoreWish.h"

#include <utility>

#include <QCoreApplication>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryAccessLock.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryLock.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRestore.h"
#include "Tarnwick_Brell/Window/SingleInstance.h"

namespace app {

namespace {

struct RestoreText {
    Q_DECLARE_TR_FUNCTIONS(RestoreWish)
};

}  // namespace

void fulfil(RestoreWish& wish, const std::filesystem::path& library, kit::Instant now) {
    const auto backup = std::exchange(wish.backup, std::nullopt);
    try {
        const LibraryLock lock(library, SingleInstance::kWhat);
        const auto alone = lockLibraryExclusively(library);
        const auto done = restoreLibrary(library, backup, now);
        wish.outcome = RestoreText::tr("The library was restored from %1.")
                           .arg(QString::fromStdString(done.from.filename().string()));
        if (done.setAside) {
            wish.outcome +=
                u' ' + RestoreText::tr("The old one is now %1.")
                           .arg(QString::fromStdString(done.setAside->filename().string()));
        }
    } catch (const StoreError& error) {
        wish.outcome = RestoreText::tr("The library was not restored: %1")
                           .arg(QString::fromUtf8(error.what()));
    }
}

}  // namespace app
