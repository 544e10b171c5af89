#pragma once

#include <vector>

#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Storage/StoredStory.h"

namespace brell {

/// For each query the stories of the last days that it matches, newest first.
std::vector<std::vector<desk::StoredStory>> matchedLately(
    Session& session, const std::vector<newsroom::StoryQuery>& queries, int days);

/// What a query would have matched, each story with the term that made it match.
void printMatches(Session& session, const newsroom::StoryQuery& query,
                  const std::vector<desk::StoredStory>& matched, int days);

}  // namespace brell
