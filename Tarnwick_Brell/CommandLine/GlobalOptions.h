#pragma once

#include "Tarnwick_Brell/Shell/DeskOptions.h"

namespace brell {

/// Options that every subcommand takes.
struct GlobalOptions : desk::DeskOptions {
    bool json = false;
};

}  // namespace brell
