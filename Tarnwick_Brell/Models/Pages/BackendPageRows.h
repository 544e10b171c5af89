#pragma once

#include <vector>

#include <QString>

#include "NewsroomKit/Backend/BackendAPI.h"
#include "NewsroomKit/Trackers/CachedValue.h"
#include "Tarnwick_Brell/Models/Pages/BackendPageModel.h"

/// What the page of findings shows, as texts.
namespace app {

/// `lookedAt`: the last finding of the last look.
std::vector<FindingLine> findingLines(const std::vector<StoredFinding>& found,
                                      std::int64_t lookedAt, kit::Instant now);

FindingLine watchedFileLine(const kit::WatchedFile& file,
                            const kit::CachedValue<kit::WatchedAnswer>& answer, kit::Instant now);

/// How the file is read: what an entry is, what is left out, how often it is asked for.
QString watchedFileText(const kit::WatchedFile& file,
                        const kit::CachedValue<kit::WatchedAnswer>& answer, kit::Instant now);

std::vector<StateRow> stateRows(const kit::FindingSides& sides);

}  // namespace app
