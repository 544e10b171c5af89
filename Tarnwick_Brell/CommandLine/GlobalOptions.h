#pragma once

#include "Tarnwick_Brell/Shell/DeskOptions.h"

namespace cli {

/// Options that every subcommand takes.
struct GlobalOptions : app::DeskOptions {
    bool json = false;
};

}  // namespace cli
