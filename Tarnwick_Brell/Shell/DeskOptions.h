#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace arguments {
class Command;
}

namespace app {

/// Options that every program of the desk takes.
struct DeskOptions {
    bool demo = false;
    std::optional<std::filesystem::path> dataDir;
    std::optional<std::string> connectTo;
    std::optional<std::filesystem::path> caFile;
    std::optional<std::string> log;  ///< levels, as kit::LogLevels reads them
};

/// Makes the program read them from its command line.
void addDeskOptions(arguments::Command& program, DeskOptions& options);

}  // namespace app
