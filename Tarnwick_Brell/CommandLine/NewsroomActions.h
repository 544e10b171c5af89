#pragma once

#include <cstdint>
#include <string>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

/// The actions of `brell newsroom` and its subcommands; each returns the exit status.
namespace cli {

struct NewsroomOptions {
    std::string name{};
    std::string newName{};
    std::string symbol{};
    std::string panels{};  ///< kinds, separated by commas
    std::string file{};
    std::int64_t place = 1;
    bool preview = false;
    bool everything = false;
    QueryOptions focus{};
};

int listNewsrooms(Session& session);
int showNewsroom(Session& session, const NewsroomOptions& options);
int newNewsroom(Session& session, const NewsroomOptions& options);
int changeNewsroom(Session& session, const NewsroomOptions& options);
int duplicateNewsroom(Session& session, const NewsroomOptions& options);
int moveNewsroom(Session& session, const NewsroomOptions& options);
int removeNewsroom(Session& session, const NewsroomOptions& options);
int restoreNewsroom(Session& session, const NewsroomOptions& options);
int exportNewsroom(Session& session, const NewsroomOptions& options);
int importNewsroom(Session& session, const NewsroomOptions& options);

/// "stream, status and stock"
std::string panelsText(const kit::NewsroomSpec& spec);

}  // namespace cli
