#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Presentation/Style.h"

/// Stories and outlets in the words of panels.
namespace app {

/// "14 min before MacRumors"; "also MacRumors" where times do not say who was first.
QString leadText(const kit::StoryMention& first, const kit::StoryMention& second);

/// "Bloomberg 14:03 · Reuters 14:24 · 4 more"
QString sourcesText(const std::vector<kit::StoryMention>& outlets, kit::Instant now,
                    const Style& style = Style::ofUser());

/// "“visionOS”", "“visionOS” or 2 other terms"; empty when the query asks for none.
QString termsText(const kit::StoryQuery& query);

/// What a screen reader says of a row: its parts that are not empty.
QString spokenRow(const QStringList& parts);

}  // namespace app
