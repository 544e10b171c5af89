#pragma once

#include <string>
#include <vector>

#include <QString>

#include "NewsroomKit/Attribution/Correction.h"
#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

/// Makes the correction, as a step that can be undone. Returns why it cannot be made; empty when it
/// was.
QString makeCorrection(const DeskStores& stores, kit::Correction correction);

/// Takes a correction back, as a step that can be undone.
void removeCorrection(const DeskStores& stores, const kit::Correction& correction);

/// The other stories of the story's cluster.
std::vector<std::string> othersOfSameNews(const DeskStores& stores, const std::string& storyID);

/// The story tells other news than the rest of its cluster. Returns why that cannot be said.
QString splitOff(const DeskStores& stores, const std::string& storyID,
                 std::optional<std::string> note = {});

}  // namespace app
