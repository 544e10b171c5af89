#include "Tarnwick_Brell/Models/Stories/MarkSteps.h"

#include <utility>

#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Stories/StoryActions.h"

namespace app {

UndoStack::Step readStep(NewsDesk& news, std::vector<std::string> storyIDs, bool read) {
    const auto count = static_cast<int>(storyIDs.size());
    UndoStack::Step step{
        .undo = [&news, storyIDs, read] { news.setRead(storyIDs, !read); },
        .redo = [&news, storyIDs, read] { news.setRead(storyIDs, read, Undoable::yes); }};
    if (count == 1) {
        step.text = read ? StoryActions::tr("Mark story as read")
                         : StoryActions::tr("Mark story as unread");
        step.notice =
            read ? StoryActions::tr("Marked as read.") : StoryActions::tr("Marked as unread.");
    } else {
        step.text = StoryActions::tr("Mark %n stories as read", nullptr, count);
        step.notice = StoryActions::tr("%n stories marked as read.", nullptr, count);
    }
    return step;
}

UndoStack::Step savedStep(NewsDesk& news, std::string storyID, bool saved) {
    const std::vector<std::string> ids{std::move(storyID)};
    return {.text = saved ? StoryActions::tr("Save story")
                          : StoryActions::tr("Remove story from saved"),
            .undo = [&news, ids, saved] { news.setSaved(ids, !saved); },
            .redo = [&news, ids, saved] { news.setSaved(ids, saved); },
            .notice = saved ? StoryActions::tr("Saved.") : StoryActions::tr("No longer saved.")};
}

}  // namespace app
