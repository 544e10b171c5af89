#pragma once

#include <filesystem>
#include <optional>

namespace app {

/// Writes the file's bytes to the disk, so that they outlast a power cut. Throws StoreError.
void makeDurable(const std::filesystem::path& file);

/// Renames `from` to `to`, which it replaces in one step: a power cut leaves either the old
/// file or the new one. Both lie in the same folder. Throws StoreError.
void moveIntoPlace(const std::filesystem::path& from, const std::filesystem::path& to);

/// Makes a folder for this user alone, unless it is there already. Throws StoreError.
void makeFolder(const std::filesystem::path& folder);

/// A file that one program at a time holds, or several that share it. It is let go when its
/// owner ends, however that happens.
class FileLock {
public:
    enum class Wait { no, untilFree };
    enum class Kind { exclusive, shared };

    /// Makes the file when there is none. Nothing when another program holds it. Throws
    /// StoreError when the file can't be made or opened for writing.
    static std::optional<FileLock> take(const std::filesystem::path& file, Wait wait,
                                        Kind kind = Kind::exclusive);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    ~FileLock();

    /// Of the open file, for reading and writing.
    int descriptor() const { return descriptor_; }

private:
    explicit FileLock(int descriptor) : descriptor_(descriptor) {}

    int descriptor_ = -1;
};

}  // namespace app
