#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "NewsroomKit/Stories/Story.h"

namespace app {

/// Stories published before `oldest` are not stored. One that is dated after `latest` counts as
/// published then.
struct StoryTimes {
    kit::Instant oldest{};
    kit::Instant latest{};
};

/// The stories of a fetch that are stored, with their texts cut to readable lengths: a feed may
/// have megabytes in one headline. Leaves out stories that are too old, whose link is too long
/// for a browser, or that are not about Apple when the source is `onlyApple`.
std::vector<kit::Story> storiesToStore(const kit::NewsSource& source,
                                       std::vector<kit::Story> stories, StoryTimes times);

bool isAboutApple(const kit::Story& story);

/// The latest publication time. Absent when there is no story.
std::optional<kit::Instant> newestOf(const std::vector<kit::Story>& stories);

/// A source's name, cut to a length that fits into a list.
std::string shortenedName(std::string_view name);

}  // namespace app
