#pragma once

#include <vector>

#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"

namespace cli {

/// For each query the stories of the last days that it matches, newest first.
std::vector<std::vector<app::StoredStory>> matchedLately(
    Session& session, const std::vector<kit::StoryQuery>& queries, int days);

/// What a query would have matched, each story with the term that made it match.
void printMatches(Session& session, const kit::StoryQuery& query,
                  const std::vector<app::StoredStory>& matched, int days);

}  // namespace cli
