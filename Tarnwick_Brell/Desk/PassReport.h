#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/Tables/SourceStatus.h"
#include "Tarnwick_Brell/Storage/Tables/StoryMerge.h"

namespace app {

/// Statuses and healths of all sources that were ever fetched, by id.
struct SourceStates {
    std::map<std::string, SourceStatus> statuses{};
    std::map<std::string, SourceHealth> healths{};

    bool operator==(const SourceStates&) const = default;
};

/// The result of a pass for one source.
struct SourceOutcome {
    enum class Kind {
        stories,    ///< the feed was read
        unchanged,  ///< the server answered that nothing is new
        failed,
        notDue,  ///< skipped, because it was fetched less than its shortest interval ago
        paused,  ///< skipped, because its host asked for a pause until `pausedUntil`
        cancelled
    };

    kit::NewsSource source{};
    Kind kind = Kind::notDue;
    MergeCount merged{};
    bool isEmpty = false;  ///< the feed was read and has no stories
    SourceStatus status{};
    SourceHealth health{};
    /// The error of this fetch. `status` has it only when the source is to blame.
    std::optional<std::string> error{};
    std::optional<kit::Instant> pausedUntil{};
    kit::HTTPClient::Record record{};
};

/// The results that one transaction of a pass has stored.
struct CommittedBatch {
    std::optional<std::int64_t> stamp{};  ///< of the transaction; absent when nothing was written
    std::vector<SourceOutcome> outcomes{};
    std::vector<StoredStory> added{};
    std::vector<StoredStory> revised{};
};

/// The sentence that users see while their clock seems wrong.
inline constexpr std::string_view kClockSeemsWrong =
    "This computer's clock seems wrong: it is more than a day away from what the servers say. "
    "Until they agree no story is dropped for its age.";

struct PassReport {
    std::vector<SourceOutcome> outcomes{};
    /// No source answered. The sources are not marked as failing then.
    bool offline = false;
    bool cancelled = false;
    /// This computer's clock is more than a day away from what the servers say.
    bool clockSeemsWrong = false;
    /// Stories published before this moment were dropped. Absent when none was dropped for its
    /// age, because no server has confirmed the clock.
    std::optional<kit::Instant> droppedBefore{};
    kit::Instant ended{};
};

}  // namespace app
