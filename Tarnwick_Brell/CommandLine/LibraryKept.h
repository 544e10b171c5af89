#pragma once

#include "Tarnwick_Brell/CommandLine/Command.h"

namespace cli {

/// The subcommands of `brell library` about what the user keeps.
void addLibraryKeptCommands(arguments::Command& library, Command& chosen);

}  // namespace cli
