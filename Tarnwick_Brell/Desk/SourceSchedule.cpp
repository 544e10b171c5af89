#include "Tarnwick_Brell/Desk/SourceSchedule.h"

#include <algorithm>
#include <chrono>

#include "NewsroomKit/Ingestion/FetchQueue.h"

namespace app {

using kit::Instant;

std::optional<Instant> pauseOf(const kit::NewsSource& source, const Pauses& pauses, Instant now) {
    const auto pause = pauses.find(kit::FetchQueue::hostOf(source));
    if (pause == pauses.end() || pause->second <= now) return std::nullopt;
    return pause->second;
}

std::optional<Instant> nextTry(const kit::NewsSource& source, const SourceStatus& status,
                               const Pauses& pauses, Instant now) {
    auto earliest = pauseOf(source, pauses, now);
    // A clock that was set back must not silence a source.
    if (status.lastAttempt && *status.lastAttempt <= now) {
        const auto due =
            *status.lastAttempt + std::chrono::duration_cast<Instant::duration>(
                                      std::chrono::duration<double>(source.minimumInterval));
        if (due > now) earliest = std::max(earliest, std::optional(due));
    }
    return earliest;
}

}  // namespace app
