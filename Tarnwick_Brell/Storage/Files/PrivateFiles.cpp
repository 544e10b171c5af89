#include "Tarnwick_Brell/Storage/Files/PrivateFiles.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace app {

namespace fs = std::filesystem;

std::error_code makePrivateFolder(const fs::path& folder) {
    std::error_code error;
    if (fs::is_directory(folder, error)) return {};
    error.clear();  // it may say that the folder doesn't exist
    if (folder.has_parent_path()) fs::create_directories(folder.parent_path(), error);
    if (error) return error;
    // Another program may just have created it.
    if (mkdir(folder.c_str(), S_IRWXU) == 0 || errno == EEXIST) return {};
    return {errno, std::generic_category()};
}

void makePrivateFile(const fs::path& file) {
    const bool made = mknod(file.c_str(), S_IFREG | S_IRUSR | S_IWUSR, 0) == 0;
    if (!made && errno == EEXIST) restrictToOwner(file);
}

void restrictToOwner(const fs::path& path) {
    constexpr mode_t kOthers = S_IRWXG | S_IRWXO;
    struct stat found{};
    if (stat(path.c_str(), &found) != 0 || found.st_uid != geteuid()) return;
    if ((found.st_mode & kOthers) != 0) chmod(path.c_str(), found.st_mode & 07777 & ~kOthers);
}

}  // namespace app
