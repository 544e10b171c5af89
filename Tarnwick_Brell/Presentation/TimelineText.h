#pragma once

#include <optional>

#include <QString>

#include "NewsroomKit/Panels/TimelinePageContent.h"
#include "Tarnwick_Brell/Presentation/Style.h"

/// A subject's timeline in words.
namespace app {

/// "First rumor"
QString stageName(kit::TimelineStage::Stage stage);
/// "Rumor"
QString stageBadge(kit::TimelineStage::Stage stage);

/// A day; on a scale of hours with its time.
QString stageDate(const kit::TimelinePage& content, kit::Instant at,
                  const Style& style = Style::ofUser());

/// "48 days", "3 h 5 min"; empty without a number.
QString daysText(std::optional<double> days);

/// "first of 11, 26 min before Reuters"
QString stepDetail(const kit::TimelinePage::Step& step);

/// "Confirmed after 133 days"
QString outcomeText(const kit::LedgerClaim& claim);

/// The whole timeline for other programs.
QString timelineMarkdown(const kit::TimelinePage& content, const QString& subject);

}  // namespace app
