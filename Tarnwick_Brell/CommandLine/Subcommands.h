#pragma once

#include <memory>
#include <type_traits>

#include "Tarnwick_Brell/CommandLine/Command.h"

namespace cli {

/// A subcommand that runs `action` with the options that it shares with its siblings.
template <class Options>
arguments::Command addAction(arguments::Command& parent, Command& chosen,
                             const std::shared_ptr<Options>& options, const char* name,
                             const char* meaning,
                             int (*action)(Session&, const std::type_identity_t<Options>&)) {
    auto command = parent.subcommand(name, meaning);
    command.whenChosen([&chosen, options, action] {
        chosen = [options, action](Session& session) { return action(session, *options); };
    });
    return command;
}

}  // namespace cli
