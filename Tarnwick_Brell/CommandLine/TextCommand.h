#pragma once

#include "Tarnwick_Brell/CommandLine/Command.h"

namespace cli {

void addTextCommand(arguments::Command& app, Command& chosen);

}  // namespace cli
