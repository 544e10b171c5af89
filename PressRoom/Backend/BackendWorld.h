#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// The data file of Apple's public files. Times are minutes before the world's anchor, negative
/// ones after it; README.md explains every key.
namespace pressroom {

struct WorldFileEntry {
    std::string text{};
    std::optional<double> minutesAgo{};  ///< absent: always
    std::optional<double> goneMinutesAgo{};
    std::optional<double> copies{};  ///< with "{copy}" counted
};

struct WorldPublicFile {
    std::string host{};
    std::string path{};
    std::string type{};  ///< its content type
    std::string head{};
    std::string separator{};
    std::string tail{};
    std::vector<WorldFileEntry> entries{};  ///< in another order in every answer
};

struct WorldPublicFiles {
    std::vector<WorldPublicFile> files{};
};

/// Reads the file in the folder `backend` below `directory`. Throws WorldError.
WorldPublicFiles readPublicFiles(const std::filesystem::path& directory);

}  // namespace pressroom
