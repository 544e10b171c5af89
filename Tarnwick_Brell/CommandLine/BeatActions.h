#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

/// What `brell beat` and its subcommands do; each gives the exit status.
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
/// What a beat, or a query that is to become one, would have matched lately.
int tryBeat(Session& session, const BeatOptions& options);
int moveBeat(Session& session, const BeatOptions& options);
int removeBeat(Session& session, const BeatOptions& options);
int restoreBeat(Session& session, const BeatOptions& options);

}  // namespace cli
