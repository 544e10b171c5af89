#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

/// The long-lived desk that holds a library: its process, and its name for messages ("brell
/// watch").
struct LockHolder {
    int process = 0;  ///< 0 when the holder has not written it yet
    std::string what{};

    bool operator==(const LockHolder&) const = default;
};

/// Another desk has the library open.
class LibraryInUseError : public StoreError {
public:
    explicit LibraryInUseError(LockHolder holder);
    const LockHolder& holder() const { return holder_; }

private:
    LockHolder holder_;
};

/// Makes this process the only long-lived desk of a library while the object lives, by locking the
/// file "library.lock" beside it. Short commands don't need it: SQLite separates their writes.
class LibraryLock {
public:
    /// Throws LibraryInUseError, or StoreError when the folder can't be written.
    LibraryLock(const std::filesystem::path& library, std::string_view what);
    ~LibraryLock();
    LibraryLock(const LibraryLock&) = delete;
    LibraryLock& operator=(const LibraryLock&) = delete;

    /// The previous desk did not end normally: a crash, a kill, a power cut.
    bool lastHolderDied() const { return lastHolderDied_; }

private:
    static FileLock acquire(const std::filesystem::path& file);
    void write(std::string_view text);

    FileLock lock_;
    bool lastHolderDied_ = false;
};

}  // namespace app
