#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "Tarnwick_Brell/Storage/Files/PrivateFiles.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace fs = std::filesystem;

namespace {

/// Syncs a file or a folder; a rename changes the entries of its folder.
void sync(const fs::path& file) {
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) failWriting(file, errno);
    const int error = fsync(descriptor) == 0 ? 0 : errno;
    close(descriptor);
    if (error != 0) failWriting(file, error);
}

}  // namespace

void failWriting(const fs::path& file, int error) {
    using Reason = StoreError::Reason;
    if (error == ENOSPC || error == EDQUOT || error == EFBIG) {
        throw StoreError(Reason::diskFull,
                         "The disk is full, so " + file.string() + " can't be written.");
    }
    const bool readOnly = error == EROFS || error == EACCES || error == EPERM;
    throw StoreError(
        readOnly ? Reason::readOnly : Reason::unreadable,
        file.string() + " can't be written (" + std::generic_category().message(error) + ").");
}

void makeDurable(const fs::path& file) { sync(file); }

void moveIntoPlace(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::rename(from, to, error);
    if (error) failWriting(to, error.value());
    sync(to.parent_path());
}

void makeFolder(const fs::path& folder) {
    if (const auto error = makePrivateFolder(folder)) failWriting(folder, error.value());
}

std::optional<FileLock> FileLock::acquire(const fs::path& file, Wait wait, Kind kind) {
    const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0) failWriting(file, errno);
    FileLock lock(descriptor);
    const int how = kind == Kind::shared ? LOCK_SH : LOCK_EX;
    int outcome = -1;
    do {
        outcome = flock(descriptor, how | (wait == Wait::no ? LOCK_NB : 0));
    } while (outcome != 0 && errno == EINTR);
    if (outcome == 0) return lock;
    if (errno == EWOULDBLOCK) return std::nullopt;
    failWriting(file, errno);
}

FileLock::FileLock(FileLock&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

FileLock::~FileLock() {
    if (descriptor_ >= 0) close(descriptor_);
}

}  // namespace app
