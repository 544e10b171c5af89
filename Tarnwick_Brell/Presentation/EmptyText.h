#pragma once

#include <optional>

#include <QString>

#include "NewsroomKit/Newsrooms/PanelKind.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Records/Instant.h"

/// What story panels say instead of rows.
namespace app {

/// No story matches the query: "No story in the last 3 days mentions “visionOS”." Without a span,
/// of the whole wire; the panel of Apple's own stories speaks of posts.
QString noStoryText(kit::PanelKind kind, const kit::StoryQuery& query,
                    std::optional<kit::Instant::duration> span = {});

/// Stories match, but none gives a row: "No news that several outlets cover."
QString nothingOfItText(kit::PanelKind kind);

}  // namespace app
