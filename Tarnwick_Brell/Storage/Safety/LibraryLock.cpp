#include "Tarnwick_Brell/Storage/Safety/LibraryLock.h"

#include <unistd.h>

#include <fstream>

#include <fmt/format.h>

namespace app {

namespace fs = std::filesystem;

namespace {

fs::path lockFile(const fs::path& library) { return fs::path(library).replace_extension(".lock"); }

LockHolder holderIn(const fs::path& file) {
    LockHolder holder;
    std::ifstream stream(file);
    if (stream >> holder.process) std::getline(stream >> std::ws, holder.what);
    return holder;
}

std::string sentence(const LockHolder& holder) {
    if (holder.process == 0) return "Another desk has this library open.";
    return fmt::format("This library is already open in {} (process {}).", holder.what,
                       holder.process);
}

}  // namespace

LibraryInUseError::LibraryInUseError(LockHolder holder)
    : StoreError(Reason::busy, sentence(holder)), holder_(std::move(holder)) {}

LibraryLock::LibraryLock(const fs::path& library, std::string_view what)
    : lock_(acquire(lockFile(library))) {
    // The holder empties the file when it ends normally; the kernel releases the lock in any case.
    lastHolderDied_ = lseek(lock_.descriptor(), 0, SEEK_END) > 0;
    write(fmt::format("{} {}\n", getpid(), what));
}

LibraryLock::~LibraryLock() { write(""); }

FileLock LibraryLock::acquire(const fs::path& file) {
    auto lock = FileLock::acquire(file, FileLock::Wait::no);
    if (!lock) throw LibraryInUseError(holderIn(file));
    return *std::move(lock);
}

void LibraryLock::write(std::string_view text) {
    // The content of the file is only for messages and lastHolderDied(): on a full disk the lock
    // still works.
    const bool emptied = ftruncate(lock_.descriptor(), 0) == 0;
    if (emptied && pwrite(lock_.descriptor(), text.data(), text.size(), 0) < 0) return;
}

}  // namespace app
