#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

/// The actions of `brell beat` and its subcommands; each returns the exit status.
namespace cli {

struct BeatOptions {
    std::string name{};
    std::string newName{};
    std::string symbol{};
    std::string alerts{};  ///< "on", "off" or not given
    std::int64_t place = 1;
    std::int64_t days = 7;
    QueryOptions query{};
};

int listBeats(Session& session);
int newBeat(Session& session, const BeatOptions& options);
int changeBeat(Session& session, const BeatOptions& options);
/// Shows which recent stories a beat, or a query for a new beat, would have matched.
int tryBeat(Session& session, const BeatOptions& options);
int moveBeat(Session& session, const BeatOptions& options);
int removeBeat(Session& session, const BeatOptions& options);
int restoreBeat(Session& session, const BeatOptions& options);

}  // namespace cli
