#pragma once

#include <string>
#include <vector>

#include "Tarnwick_Brell/Models/Undo/UndoStack.h"

namespace app {

class NewsDesk;

// The steps of changes of marks that have just been made, with their texts. `news` must outlive
// them.

/// The stories, which had not been so, were marked as read, or as unread.
UndoStack::Step readStep(NewsDesk& news, std::vector<std::string> storyIDs, bool read);
UndoStack::Step savedStep(NewsDesk& news, std::string storyID, bool saved);

}  // namespace app
