#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace brell {

/// Options that every subcommand takes.
struct GlobalOptions {
    bool json = false;
    bool demo = false;
    std::optional<std::filesystem::path> dataDir;
    std::optional<std::string> connectTo;
    std::optional<std::filesystem::path> caFile;
};

}  // namespace brell
