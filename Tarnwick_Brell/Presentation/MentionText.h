#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Presentation/Style.h"

/// Stories and outlets in the words of panels.
namespace app {

/// "Bloomberg": who was first; the outlet of the earliest story where that is not known.
QString leaderText(const kit::Attribution& attribution,
                   const std::vector<kit::StoryMention>& outlets);

/// What follows the leader: "14 min before MacRumors", "credited by 4 outlets"; "also MacRumors"
/// where it is not known who was first. `outlets` are those that told the news, by time.
QString leadText(const kit::Attribution& attribution,
                 const std::vector<kit::StoryMention>& outlets);

/// "Bloomberg 14:03 · Reuters 14:24 · 4 more"
QString sourcesText(const std::vector<kit::StoryMention>& outlets, kit::Instant now,
                    const Style& style = Style::ofUser());

/// "“visionOS”", "“visionOS” or 2 other terms"; empty when the query asks for none.
QString termsText(const kit::StoryQuery& query);

/// What a screen reader says of a row: its parts that are not empty.
QString spokenRow(const QStringList& parts);

}  // namespace app
