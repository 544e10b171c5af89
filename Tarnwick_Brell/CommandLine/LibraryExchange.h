#pragma once

#include "Tarnwick_Brell/CommandLine/Command.h"

namespace cli {

/// brell library export, brell library import
void addLibraryExchangeCommands(arguments::Command& library, Command& chosen);

}  // namespace cli
