#pragma once

#include <span>
#include <string>

#include "NewsroomKit/Newsrooms/Beat.h"
#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace kit {

/// Creates a newsroom with a panel for every wanted kind, packed onto the grid. Throws RecordError
/// as NewsroomLimits::require does.
NewsroomSpec madeNewsroom(std::string name, std::string symbol, std::span<const PanelKind> kinds,
                          StoryQuery focus);

/// Copies a newsroom under another name; the copy and its panels have ids of their own. Throws
/// RecordError as NewsroomLimits::require does.
NewsroomSpec duplicated(const NewsroomSpec& spec, std::string name);

/// Creates a beat with a fresh id; a symbol that is not in NewsroomSymbols becomes the fallback.
/// Throws RecordError as NewsroomLimits::require does.
Beat madeBeat(std::string name, std::string symbol, StoryQuery query, bool alerts);

}  // namespace kit
