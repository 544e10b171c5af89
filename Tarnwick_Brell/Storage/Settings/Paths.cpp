#include "Tarnwick_Brell/Storage/Settings/Paths.h"

#include <cstdlib>
#include <string>
#include <system_error>

#include "Tarnwick_Brell/Storage/Files/PrivateFiles.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace {

constexpr const char* kFolder = "tarnwick-brell";

/// An XDG variable counts only when it names an absolute path.
std::filesystem::path baseDirectory(const char* variable, const char* belowHome) {
    if (const char* value = std::getenv(variable); value && *value == '/') return value;
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home && *home ? home : "/") / belowHome;
}

/// Whether the desk creates files or folders of this name.
bool isOurs(const std::string& name) {
    return name.starts_with("library.") || name.starts_with("settings.ini") ||
           name.starts_with("program.log") || name == "backups" || name == "pictures" ||
           name == "demo" || name == "world-start";
}

void restrictFiles(const std::filesystem::path& folder) {
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
        restrictToOwner(entry.path());
    }
}

/// A folder that the user chose and that contains other things, perhaps a home folder, keeps its
/// permissions; the desk's files in it are private all the same.
void restrictFolder(const std::filesystem::path& folder) {
    bool isOursAlone = true;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
        if (!isOurs(entry.path().filename().string())) {
            isOursAlone = false;
            continue;
        }
        restrictToOwner(entry.path());
        if (entry.path().filename() == "backups") restrictFiles(entry.path());
    }
    if (isOursAlone || folder.filename() == kFolder) restrictToOwner(folder);
}

}  // namespace

std::filesystem::path configFolder() { return baseDirectory("XDG_CONFIG_HOME", ".config"); }

Paths Paths::forUser(const std::optional<std::filesystem::path>& dataDir) {
    const auto data = dataDir ? *dataDir : baseDirectory("XDG_DATA_HOME", ".local/share") / kFolder;
    const auto config = dataDir ? *dataDir : configFolder() / kFolder;
    const auto state =
        dataDir ? *dataDir : baseDirectory("XDG_STATE_HOME", ".local/state") / kFolder;
    const auto cache = dataDir ? *dataDir : baseDirectory("XDG_CACHE_HOME", ".cache") / kFolder;
    return {.library = data / "library.sqlite",
            .settings = config / "settings.ini",
            .log = state / "program.log",
            .pictures = cache / "pictures"};
}

void Paths::createFolders() const {
    for (const auto& folder : {library.parent_path(), settings.parent_path()}) {
        if (const auto error = makePrivateFolder(folder)) {
            throw StoreError(
                StoreError::Reason::readOnly,
                "The folder " + folder.string() + " can't be made (" + error.message() + ").");
        }
        restrictFolder(folder);
    }
}

}  // namespace app
