#pragma once

#include <map>
#include <optional>
#include <string>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/Tables/SourceStatus.h"

namespace app {

/// Pauses that hosts asked for, as HostBackoff loads them.
using Pauses = std::map<std::string, kit::Instant, std::less<>>;

/// Until when the source's host wants to be left alone.
std::optional<kit::Instant> pauseOf(const kit::NewsSource& source, const Pauses& pauses,
                                    kit::Instant now);

/// Before which moment no pass asks for the source; nothing when the next pass does.
std::optional<kit::Instant> nextTry(const kit::NewsSource& source, const SourceStatus& status,
                                    const Pauses& pauses, kit::Instant now);

}  // namespace app
