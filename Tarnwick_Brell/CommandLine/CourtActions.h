#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Tarnwick_Brell/CommandLine/Session.h"

/// What the subcommands of `brell court` change.
namespace cli {

struct CourtOptions {
    std::string docket;
    std::string address;
    std::string name;
    std::string note;
    std::optional<std::string> since;
    bool all = false;
    bool newCases = false;
    bool stored = false;
};

/// The docket that the user names. Throws WrongUsage.
std::int64_t docketIn(const std::string& text);

/// The address of a feed that the user names. Throws WrongUsage.
std::string feedAddressIn(const std::string& text);

/// The cases that the search has found.
int showNewCases(Session& session, const CourtOptions& options);
int followCase(Session& session, const CourtOptions& options);
int unfollowCase(Session& session, const CourtOptions& options);
int noteCase(Session& session, const CourtOptions& options);
int addCourtFeed(Session& session, const CourtOptions& options);
int removeCourtFeed(Session& session, const CourtOptions& options);

}  // namespace cli
