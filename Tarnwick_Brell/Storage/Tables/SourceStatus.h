#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/EnumTable.h"

namespace app {

/// How the fetching of one source goes.
struct SourceStatus {
    std::optional<kit::Instant> lastAttempt{};
    std::optional<kit::Instant> lastSuccess{};  ///< a 304 counts
    std::optional<std::string> lastError{};     ///< shown to the user; absent after a success
    std::int64_t storyCount = 0;  ///< stories of its last successful fetch that the desk keeps

    bool operator==(const SourceStatus&) const = default;
};

/// What else those want to know who look after their sources.
struct SourceHealth {
    std::optional<kit::Instant> failingSince{};  ///< first of the failures in a row
    std::optional<std::int64_t>
        latency{};                        ///< milliseconds that the last fetch took, retry included
    std::optional<std::int64_t> bytes{};  ///< of the last fetch, as they came over the wire
    /// When the feed last came in full, not only the news that nothing is new.
    std::optional<kit::Instant> lastFullFetch{};
    /// Publication time of the newest story of the last full fetch that had any. Absent as
    /// long as the source has never brought a story.
    std::optional<kit::Instant> newestStory{};
    /// Stories of the last full fetch that share their link with another one of it, which
    /// alone is kept.
    std::int64_t collapsed = 0;
    std::int64_t collided = 0;  ///< of the last full fetch: other stories that would get a known id
    std::optional<std::string> movedTo{};  ///< where the feed says it has gone for good

    bool operator==(const SourceHealth&) const = default;
};

/// What the user has set for a source in place of what the catalogue says.
struct SourceOptions {
    std::optional<bool> onlyApple{};
    std::optional<double> minimumInterval{};  ///< seconds
    bool notInAll = false;  ///< its stories are left out of the lists of all and unread stories

    bool operator==(const SourceOptions&) const = default;
};

/// How one fetch of a source went.
struct SourceTry {
    /// `full`: the feed came, and everything in it was known.
    enum class Outcome { unchanged, full, news, failed };

    kit::Instant at{};
    Outcome outcome = Outcome::unchanged;
    std::int64_t added = 0;  ///< new stories
    std::string reason{};    ///< of a failure, shown to the user

    bool operator==(const SourceTry&) const = default;
};

/// Tries are kept for so long.
inline constexpr std::chrono::days kTriesKept{7};

}  // namespace app

template <>
inline constexpr std::array<kit::EnumRow<app::SourceTry::Outcome>, 4>
    kit::enumTable<app::SourceTry::Outcome>{{
        {app::SourceTry::Outcome::unchanged, "unchanged", "Unchanged"},
        {app::SourceTry::Outcome::full, "full", "Nothing new"},
        {app::SourceTry::Outcome::news, "news", "New stories"},
        {app::SourceTry::Outcome::failed, "failed", "Failed"},
    }};

template <>
struct kit::JSONFields<app::SourceStatus> {
    static constexpr auto fields = std::tuple{
        field("lastAttempt", &app::SourceStatus::lastAttempt),
        field("lastSuccess", &app::SourceStatus::lastSuccess),
        field("lastError", &app::SourceStatus::lastError),
        field("storyCount", &app::SourceStatus::storyCount),
    };
};

template <>
struct kit::JSONFields<app::SourceHealth> {
    static constexpr auto fields = std::tuple{
        field("failingSince", &app::SourceHealth::failingSince),
        field("latency", &app::SourceHealth::latency),
        field("bytes", &app::SourceHealth::bytes),
        field("lastFullFetch", &app::SourceHealth::lastFullFetch),
        field("newestStory", &app::SourceHealth::newestStory),
        field("collapsed", &app::SourceHealth::collapsed),
        field("collided", &app::SourceHealth::collided),
        field("movedTo", &app::SourceHealth::movedTo),
    };
};
