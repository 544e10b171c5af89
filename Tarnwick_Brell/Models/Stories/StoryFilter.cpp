#include "Tarnwick_Brell/Models/Stories/StoryFilter.h"

namespace app {

namespace {

bool hasMark(const PackedStory& story, StoryFilter::Marks marks) {
    switch (marks) {
        case StoryFilter::Marks::any: return true;
        case StoryFilter::Marks::unread: return !story.isRead();
        case StoryFilter::Marks::saved: return story.isSaved();
    }
    return true;
}

}  // namespace

LiveQuery::Test StoryFilter::test() const {
    auto wanted = query;
    // Set-aside kinds are decided on here, where a kind that is asked for by name counts too.
    wanted.includesSetAside = true;
    const bool isPlain = query.isEmpty();
    return [filter = *this, matches = LiveQuery::test(wanted), isPlain](const PackedStory& story) {
        const auto kind = story.kind();
        if (!filter.kinds.empty()) {
            if (!filter.kinds.contains(kind)) return false;
        } else if (isSetAside(kind) && !filter.showsSetAside && !filter.query.includesSetAside) {
            return false;
        }
        if (!hasMark(story, filter.marks)) return false;
        if (filter.isAppleOnly && !story.isAppleSource()) return false;
        if (!filter.sourcings.empty() && !filter.sourcings.contains(story.sourcing())) return false;
        if (!filter.sourceIDs.empty() && !filter.sourceIDs.contains(story.sourceID())) return false;
        if (filter.leftOut.contains(story.sourceID())) return false;
        return isPlain || matches(story);
    };
}

}  // namespace app
