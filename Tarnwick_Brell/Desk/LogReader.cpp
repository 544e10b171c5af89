#include "Tarnwick_Brell/Desk/LogReader.h"

#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

LogPage readLog(const std::filesystem::path& library, const SignalSelection& selection,
                std::size_t most) {
    LocalStore store(library, Database::Access::readOnly);
    auto& log = store.signalLog();
    LogPage page{.found = log.newest(most + 1, selection),
                 .total = log.lastNumber(),  // Signals are never deleted.
                 .begin = log.begin()};
    page.isLast = page.found.size() <= most;
    if (!page.isLast) page.found.pop_back();
    return page;
}

}  // namespace app
