#include "Tarnwick_Brell/Models/Pages/LibraryReading.h"

namespace app {

QThreadPool& libraryThread() {
    static QThreadPool pool;
    pool.setMaxThreadCount(1);
    return pool;
}

}  // namespace app
