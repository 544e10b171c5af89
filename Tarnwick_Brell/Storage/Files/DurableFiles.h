#pragma once

#include <filesystem>
#include <optional>

namespace app {

/// Flushes the file to the disk, so that it survives a power cut. Throws StoreError.
void makeDurable(const std::filesystem::path& file);

/// Atomically renames `from` to `to` in the same folder: a power cut leaves either the old file or
/// the new one. Throws StoreError.
void moveIntoPlace(const std::filesystem::path& from, const std::filesystem::path& to);

/// Throws what a failed write of the file means for the user.
[[noreturn]] void failWriting(const std::filesystem::path& file, int error);

/// Creates a folder for this user alone, unless it exists. Throws StoreError.
void makeFolder(const std::filesystem::path& folder);

/// An exclusive or shared lock on a file. It is released when the process ends, however that
/// happens.
class FileLock {
public:
    enum class Wait { no, untilFree };
    enum class Kind { exclusive, shared };

    /// Creates the file when there is none. Nothing when another program holds the lock. Throws
    /// StoreError when the file can't be created or opened for writing.
    static std::optional<FileLock> acquire(const std::filesystem::path& file, Wait wait,
                                           Kind kind = Kind::exclusive);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    ~FileLock();

    /// The descriptor of the open file, for reading and writing.
    int descriptor() const { return descriptor_; }

private:
    explicit FileLock(int descriptor) : descriptor_(descriptor) {}

    int descriptor_ = -1;
};

}  // namespace app
