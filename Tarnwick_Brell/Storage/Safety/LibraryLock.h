#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

/// A long-lived desk at a library: its process, and what it is for messages ("brell watch").
struct LockHolder {
    int process = 0;  ///< 0 when the holder has not told yet
    std::string what{};

    bool operator==(const LockHolder&) const = default;
};

/// Another desk is at the library.
class LibraryInUseError : public StoreError {
public:
    explicit LibraryInUseError(LockHolder holder);
    const LockHolder& holder() const { return holder_; }

private:
    LockHolder holder_;
};

/// The right to be the one long-lived desk of a library, held as long as the object lives, by
/// means of the file "library.lock" beside it. Commands that open the library for a moment
/// don't need it: SQLite keeps those apart.
class LibraryLock {
public:
    /// Throws LibraryInUseError, or StoreError when the folder can't be written.
    LibraryLock(const std::filesystem::path& library, std::string_view what);
    ~LibraryLock();
    LibraryLock(const LibraryLock&) = delete;
    LibraryLock& operator=(const LibraryLock&) = delete;

    /// The desk before this one ended without letting go: a crash, a kill, a power cut.
    bool lastHolderDied() const { return lastHolderDied_; }

private:
    static FileLock takeFile(const std::filesystem::path& file);
    void write(std::string_view text);

    FileLock lock_;
    bool lastHolderDied_ = false;
};

}  // namespace app
