#pragma once

#include <string>

#include <boost/json.hpp>

#include "NewsroomKit/Stories/Story.h"
#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"

/// Parts of a story as the command line shows them.
namespace cli {

/// "Six Colors", or "Daring Fireball → The Verge" when the link leads elsewhere.
std::string outletLine(const kit::Story& story);

/// "Deal", "Report", "Video · Rumor"; empty for unlabeled coverage.
std::string labelLine(const kit::Story& story);

/// The story in its serialised form with the library's fields: "read", "saved" and "firstSeen".
boost::json::object storyRecord(const app::StoredStory& stored);

}  // namespace cli
