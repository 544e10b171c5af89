#pragma once

#include <string>

#include <boost/json.hpp>

#include "NewsroomKit/Stories/Story.h"
#include "Tarnwick_Brell/Storage/StoredStory.h"

/// Parts of a story as the command line shows them.
namespace brell {

/// "Six Colors", or "Daring Fireball → The Verge" when the link leads elsewhere.
std::string outletLine(const newsroom::Story& story);

/// "Deal", "Report", "Video · Rumor"; empty for unlabeled coverage.
std::string labelLine(const newsroom::Story& story);

/// The story in its serialised form with what the library knows of it besides: "read", "saved" and
/// "firstSeen".
boost::json::object storyRecord(const desk::StoredStory& stored);

}  // namespace brell
