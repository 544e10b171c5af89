#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "NewsroomKit/Stories/Story.h"

namespace app {

/// The times that a story must lie between to be kept. One that is dated later counts as
/// published at `latest`.
struct StoryTimes {
    kit::Instant oldest{};
    kit::Instant latest{};
};

/// The stories of a fetch that the desk keeps, with their texts cut to what people can read: a
/// feed may hold megabytes in one headline. Stories that are too old, that a source for Apple
/// news has about other things, or whose link no browser would open are left out.
std::vector<kit::Story> storiesToKeep(const kit::NewsSource& source,
                                      std::vector<kit::Story> stories, StoryTimes times);

/// The latest publication time. Absent when there is no story.
std::optional<kit::Instant> newestOf(const std::vector<kit::Story>& stories);

/// A source's name as it is kept: cut to a length that fits into a list.
std::string nameToKeep(std::string_view name);

}  // namespace app
