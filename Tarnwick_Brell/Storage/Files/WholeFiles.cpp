#include "Tarnwick_Brell/Storage/Files/WholeFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace fs = std::filesystem;

namespace {

/// Hidden, in the same folder, and no other program's.
fs::path besideOf(const fs::path& file, std::string_view word) {
    auto name = "." + std::string(word) + "-" + std::to_string(getpid()) + "-";
    // With the whole of a long name it would be longer than file systems take.
    constexpr std::size_t bytesOfName = 200;
    name += file.filename().string().substr(0, bytesOfName);
    return file.parent_path() / name;
}

/// A name without a folder is of the current one, and one that ends with "/" of what is before it.
fs::path placeOf(const fs::path& file) {
    const auto place = fs::absolute(file).lexically_normal();
    return place.has_filename() ? place : place.parent_path();
}

bool isTaken(const fs::path& file) {
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
}

void requireFree(const fs::path& file, Existing existing) {
    if (existing == Existing::stays && isTaken(file)) {
        throw StoreError(StoreError::Reason::other,
                         file.string() + " exists already and was left as it is.");
    }
}

int openNew(const fs::path& file) {
    const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) failWriting(file, errno);
    return descriptor;
}

/// 0, or the error.
int writeBytes(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

}  // namespace

WholeFile::WholeFile(fs::path file, Existing existing)
    : file_(placeOf(file)), unfinished_(besideOf(file_, "unfinished")), existing_(existing) {
    requireFree(file_, existing_);
    descriptor_ = openNew(unfinished_);
}

WholeFile::~WholeFile() {
    if (descriptor_ >= 0) close(descriptor_);
    std::error_code error;
    fs::remove(unfinished_, error);
}

void WholeFile::write(std::string_view bytes) {
    if (const int error = writeBytes(descriptor_, bytes)) failWriting(file_, error);
}

void WholeFile::commit() {
    // Where there is no room the file system may say so only now.
    int error = fsync(descriptor_) == 0 ? 0 : errno;
    if (close(std::exchange(descriptor_, -1)) != 0 && error == 0) error = errno;
    if (error != 0) failWriting(file_, error);
    requireFree(file_, existing_);
    moveIntoPlace(unfinished_, file_);
}

WholeFolder::WholeFolder(fs::path folder, Existing existing)
    : folder_(placeOf(folder)), unfinished_(besideOf(folder_, "unfinished")), existing_(existing) {
    requireFree(folder_, existing_);
    std::error_code error;
    fs::remove_all(unfinished_, error);
    if (!fs::create_directory(unfinished_, error)) failWriting(folder_, error.value());
}

WholeFolder::~WholeFolder() {
    std::error_code error;
    fs::remove_all(unfinished_, error);
}

void WholeFolder::write(const fs::path& path, std::string_view bytes) {
    const auto file = unfinished_ / path;
    std::error_code made;
    fs::create_directories(file.parent_path(), made);
    if (made) failWriting(folder_ / path, made.value());
    const int descriptor = openNew(file);
    int error = writeBytes(descriptor, bytes);
    if (close(descriptor) != 0 && error == 0) error = errno;
    if (error != 0) failWriting(folder_ / path, error);
}

void WholeFolder::commit() {
    // The whole file system at once: a thousand files one by one take seconds.
    const int descriptor = open(unfinished_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) failWriting(folder_, errno);
    const int error = syncfs(descriptor) == 0 ? 0 : errno;
    close(descriptor);
    if (error != 0) failWriting(folder_, error);
    requireFree(folder_, existing_);
    if (!isTaken(folder_)) return moveIntoPlace(unfinished_, folder_);
    const auto former = besideOf(folder_, "former");
    moveIntoPlace(folder_, former);
    moveIntoPlace(unfinished_, folder_);
    std::error_code removed;
    fs::remove_all(former, removed);
}

}  // namespace app
