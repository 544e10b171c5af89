#include "Tarnwick_Brell/Shell/AppEnvironment.h"

namespace desk {

AppEnvironment::AppEnvironment(const Options& options)
    : lock_(prepared(options.paths).library, options.what),
      defaults_(options.paths.settings),
      newsDesk_(options.paths.library, options.network, defaults_, options.clock),
      care_(options.paths.library, options.clock) {
    QObject::connect(&care_, &LibraryCare::failed, &newsDesk_, &NewsDesk::failed);
    QObject::connect(&care_, &LibraryCare::libraryDamaged, &newsDesk_, &NewsDesk::libraryDamaged);
}

const Paths& AppEnvironment::prepared(const Paths& paths) {
    paths.createFolders();
    return paths;
}

void AppEnvironment::start() {
    newsDesk_.start();
    // The check reads the whole file; the first view must not wait for the disk because of it.
    QObject::connect(&newsDesk_, &NewsDesk::loaded, &care_,
                     [this] { care_.start(lock_.lastHolderDied()); });
}

}  // namespace desk
