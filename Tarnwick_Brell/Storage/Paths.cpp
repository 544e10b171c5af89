#include "Tarnwick_Brell/Storage/Paths.h"

#include <cstdlib>
#include <system_error>

#include "Tarnwick_Brell/Storage/StoreError.h"

namespace desk {

namespace {

constexpr const char* kFolder = "tarnwick-brell";

/// An XDG variable counts only when it names an absolute path.
std::filesystem::path baseDirectory(const char* variable, const char* belowHome) {
    if (const char* value = std::getenv(variable); value && *value == '/') return value;
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home && *home ? home : "/") / belowHome;
}

}  // namespace

Paths Paths::forUser(const std::optional<std::filesystem::path>& dataDir) {
    const auto data = dataDir ? *dataDir : baseDirectory("XDG_DATA_HOME", ".local/share") / kFolder;
    const auto config = dataDir ? *dataDir : baseDirectory("XDG_CONFIG_HOME", ".config") / kFolder;
    return {.library = data / "library.sqlite", .settings = config / "settings.ini"};
}

void Paths::createFolders() const {
    for (const auto& file : {library, settings}) {
        std::error_code error;
        std::filesystem::create_directories(file.parent_path(), error);
        if (error) {
            throw StoreError(StoreError::Reason::readOnly,
                             "The folder " + file.parent_path().string() + " can't be made (" +
                                 error.message() + ").");
        }
    }
}

}  // namespace desk
