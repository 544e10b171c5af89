#pragma once

#include <string>

#include "NewsroomKit/Stories/Story.h"

/// Parts of a story as the command line shows them.
namespace brell {

/// "Six Colors", or "Daring Fireball → The Verge" when the link leads elsewhere.
std::string outletLine(const newsroom::Story& story);

/// "Deal", "Report", "Video · Rumor"; empty for unlabeled coverage.
std::string labelLine(const newsroom::Story& story);

}  // namespace brell
