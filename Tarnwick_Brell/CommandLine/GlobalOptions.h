#pragma once

#include <string>

#include "Tarnwick_Brell/Shell/DeskOptions.h"

namespace cli {

/// Options that every subcommand takes.
struct GlobalOptions : app::DeskOptions {
    bool json = false;
    bool utc = false;
};

/// Adds the given --demo and --data-dir to each brell command in the sentence, so that the advice
/// applies to the same library. "brell watch" stays unchanged, because it names the running
/// program.
std::string withGivenOptions(const std::string& sentence, const GlobalOptions& options);

}  // namespace cli
