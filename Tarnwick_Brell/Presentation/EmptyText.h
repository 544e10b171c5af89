#pragma once

#include <optional>

#include <QString>

#include "NewsroomKit/Newsrooms/PanelKind.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Records/Instant.h"

/// What panels say instead of rows.
namespace app {

/// No story matches the query: "No story in the last 3 days mentions “visionOS”." Without a span,
/// of the whole wire; the panel of Apple's own stories speaks of posts.
QString noStoryText(kit::PanelKind kind, const kit::StoryQuery& query,
                    std::optional<kit::Instant::duration> span = {});

/// The panel's data are there and give no row: "No news that several outlets cover." Empty for
/// kinds that always have one, or that other texts speak for.
QString noRowText(kit::PanelKind kind);

/// Why no filings are followed as long as the user has set no mail address for the SEC.
QString noContactText();

}  // namespace app
