#pragma once

#include "Tarnwick_Brell/CommandLine/Command.h"

namespace cli {

/// brell projects export
void addProjectExport(arguments::Command& projects, Command& chosen);

}  // namespace cli
