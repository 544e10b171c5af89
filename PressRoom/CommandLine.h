#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <variant>

#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

struct CommandLine {
    std::int64_t port = 0;
    std::optional<std::filesystem::path> files;
    std::optional<std::filesystem::path> world;
    std::optional<std::int64_t> anchor;  ///< seconds since 1970
    double speed = 1;
    std::int64_t delay = 0;  ///< milliseconds before each answer
    std::int64_t clockAhead =
        0;  ///< days by which the dates of answers are ahead of this computer's clock
    std::optional<std::filesystem::path> authorityDirectory;
    bool privateCatalogue = false;
    bool readyJSON = false;
    bool exitWithParent = false;
    Misbehaviours misbehaviours;
    bool log = false;
};

/// The options, or the exit status after help or an error was printed.
std::variant<CommandLine, int> readCommandLine(int argc, char** argv);

}  // namespace pressroom
