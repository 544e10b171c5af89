#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace arguments {
class Command;
}

namespace app {

/// The common options of all programs of the desk.
struct DeskOptions {
    bool demo = false;
    std::optional<std::filesystem::path> dataDir;
    std::optional<std::string> connectTo;
    std::optional<std::filesystem::path> caFile;
    std::optional<std::string> log;  ///< levels in kit::LogLevels' form
};

/// Adds the options to the program's command line.
void addDeskOptions(arguments::Command& program, DeskOptions& options);

}  // namespace app
