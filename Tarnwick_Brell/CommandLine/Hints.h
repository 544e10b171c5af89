#pragma once

#include <string>

#include "Tarnwick_Brell/CommandLine/GlobalOptions.h"

namespace cli {

/// The sentence with --demo and --data-dir, as they were given, in each command of brell that it
/// advises, so that the advice holds for the same library. "brell watch" is left as it is: it
/// stands for the program that runs.
std::string withGivenOptions(const std::string& sentence, const GlobalOptions& options);

}  // namespace cli
