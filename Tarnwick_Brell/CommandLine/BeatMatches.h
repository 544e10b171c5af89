#pragma once

#include <vector>

#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"

namespace cli {

/// For each query its matches among the stories of the last days, newest first.
std::vector<std::vector<app::StoredStory>> matchedLately(
    Session& session, const std::vector<kit::StoryQuery>& queries, int days);

/// Prints a query's matches, each with the term that matched.
void printMatches(Session& session, const kit::StoryQuery& query,
                  const std::vector<app::StoredStory>& matched, int days);

}  // namespace cli
