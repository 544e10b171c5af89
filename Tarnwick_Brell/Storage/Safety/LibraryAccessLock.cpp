#include "Tarnwick_Brell/Storage/Safety/LibraryAccessLock.h"

#include <chrono>
#include <thread>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace fs = std::filesystem;

namespace {

fs::path useFile(const fs::path& library) { return fs::path(library).replace_extension(".in-use"); }

}  // namespace

std::optional<FileLock> shareLibrary(const fs::path& library) {
    try {
        return FileLock::acquire(useFile(library), FileLock::Wait::untilFree,
                                 FileLock::Kind::shared);
    } catch (const StoreError&) {
        return std::nullopt;
    }
}

FileLock lockLibraryExclusively(const fs::path& library) {
    constexpr std::chrono::milliseconds pause(100);
    for (std::chrono::milliseconds waited(0); waited < std::chrono::seconds(10); waited += pause) {
        auto lock = FileLock::acquire(useFile(library), FileLock::Wait::no);
        if (lock) return *std::move(lock);
        std::this_thread::sleep_for(pause);
    }
    throw StoreError(StoreError::Reason::busy, "Another program is writing to the library " +
                                                   library.string() +
                                                   ". Try again when it has finished.");
}

}  // namespace app
