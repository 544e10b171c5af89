#pragma once

#include <span>
#include <string>

#include "NewsroomKit/Library/SavedStory.h"

namespace kit {

/// The stories as the file of bookmarks that every browser reads: tags, the time of saving, and
/// the excerpt as the description. A comma inside a tag becomes a space.
std::string bookmarkFile(std::span<const SavedStory> stories);

}  // namespace kit
