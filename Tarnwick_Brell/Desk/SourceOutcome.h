#pragma once

#include <optional>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/Tables/SourceStatus.h"
#include "Tarnwick_Brell/Storage/Tables/StoryMerge.h"

namespace app {

/// What a pass did for one source.
struct SourceOutcome {
    enum class Kind {
        stories,    ///< the feed was read
        unchanged,  ///< the server answered that nothing is new
        failed,
        notDue,  ///< asked for too short a while ago, so it was left alone
        paused,  ///< its host wants to be left alone until `pausedUntil`
        cancelled
    };

    kit::NewsSource source{};
    Kind kind = Kind::notDue;
    MergeCount merged{};
    bool isEmpty = false;  ///< the feed that was read had no stories in it
    SourceStatus status{};
    SourceHealth health{};
    /// Of this fetch; the status has it only when the source is to blame.
    std::optional<std::string> error{};
    std::optional<kit::Instant> pausedUntil{};
    kit::HTTPClient::Record record{};
};

}  // namespace app
