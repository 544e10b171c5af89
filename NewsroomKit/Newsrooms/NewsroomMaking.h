#pragma once

#include <span>
#include <string>

#include "NewsroomKit/Newsrooms/Beat.h"
#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace kit {

/// A newsroom made by hand: a panel for every wanted kind, packed onto the grid. Throws
/// RecordError as NewsroomLimits::require does.
NewsroomSpec madeNewsroom(std::string name, std::string symbol, std::span<const PanelKind> kinds,
                          StoryQuery focus);

/// The same under another name: a newsroom of its own, with panels of its own. Throws
/// RecordError as NewsroomLimits::require does.
NewsroomSpec duplicated(const NewsroomSpec& spec, std::string name);

/// With a fresh id, and with the fallback for a symbol that is not in NewsroomSymbols.
/// Throws RecordError as NewsroomLimits::require does.
Beat madeBeat(std::string name, std::string symbol, StoryQuery query, bool alerts);

}  // namespace kit
