#pragma once

#include <map>
#include <optional>
#include <string>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/SourceStatus.h"

namespace desk {

/// Pauses that hosts asked for, as HostPauses loads them.
using Pauses = std::map<std::string, newsroom::Instant, std::less<>>;

/// Until when the source's host wants to be left alone.
std::optional<newsroom::Instant> pauseOf(const newsroom::NewsSource& source, const Pauses& pauses,
                                         newsroom::Instant now);

/// Before which moment no pass asks for the source; nothing when the next pass does.
std::optional<newsroom::Instant> nextTry(const newsroom::NewsSource& source,
                                         const SourceStatus& status, const Pauses& pauses,
                                         newsroom::Instant now);

}  // namespace desk
