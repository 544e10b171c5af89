#pragma once

#include <optional>
#include <vector>

#include "NewsroomKit/Panels/CourtContent.h"
#include "Tarnwick_Brell/Models/Pages/RecordRows.h"
#include "Tarnwick_Brell/Trackers/TrackedRecords.h"

/// Cases and the entries of their dockets as lines.
namespace app {

/// Those that are followed, then the new ones.
std::vector<CaseLine> caseLines(const std::vector<kit::CourtCaseRow>& followed,
                                const std::vector<SeenCase>& others,
                                std::optional<kit::Instant> lookedAt, kit::Instant now);

/// "N.D. Cal. · 5:25-cv-04417 · Judge R. Ames", of what is known.
QString caseDetail(const std::string& court, const std::string& number, const std::string& judge);

/// The entries of a case, a remark in the place of numbers that the feed lacks.
std::vector<EntryLine> entryLines(const kit::CourtContent& content, const QString& missing,
                                  std::optional<kit::Instant> lookedAt, kit::Instant now);

}  // namespace app
