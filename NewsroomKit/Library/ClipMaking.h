#pragma once

#include <string_view>

#include "NewsroomKit/Library/Clip.h"
#include "NewsroomKit/Pages/ArticleText.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// A clip of a passage of a story, without an id and a time. What stands around the passage is
/// taken from the text of the page, if there is one, else from what the feed gave. The quote need
/// not be found there: who reads the page itself sees more of it.
Clip madeClip(const Story& story, const Article* article, std::string_view quote);

}  // namespace kit
