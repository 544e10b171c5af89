#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/Tables/SourceStatus.h"
#include "Tarnwick_Brell/Storage/Tables/SourceTable.h"

namespace app {

/// How the fetching of a source goes, in one word.
enum class SourceState { fresh, unchanged, failing, never };
SourceState stateOf(const SourceStatus& status, const SourceHealth& health);

/// A source with what the desk knows of it.
struct SourceLine {
    kit::NewsSource source{};
    bool isOn = false;
    SourceStatus status{};
    SourceHealth health{};
    SourceOptions options{};
    std::optional<kit::Instant> nextTry{};  ///< absent: with the next pass
    std::int64_t recentStories = 0;         ///< of the last `kRecentStoryDays`

    /// A source that is off has nothing to complain about.
    bool isFailing() const { return isOn && status.lastError.has_value(); }
    bool isOwn() const { return source.kind == kit::NewsSource::Kind::custom; }
};

inline constexpr int kRecentStoryDays = 14;

/// `attention` puts failing sources first and the others by group.
enum class SourceOrder { attention, name, group, lastSuccess, nextTry, stories, latency, size };
enum class SourceSubset { all, on, failing, own };

struct SourceChoice {
    SourceSubset subset = SourceSubset::all;
    std::optional<kit::NewsSource::Category> group{};
    std::string words{};  ///< all must be in the name, the group or an address, in any case
    SourceOrder order = SourceOrder::attention;
    bool isReversed = false;
};

/// Sources whose stories are left out of the lists of all and of unread stories.
std::set<std::string, std::less<>> sourcesNotInAll(const SourceTable::Options& options);

bool isIn(SourceSubset subset, const SourceLine& line);

/// The lines of the choice in its order, as places in `lines`. What is not known comes last,
/// also in the reversed order; equal lines stay in their order.
std::vector<std::size_t> chosenSources(const std::vector<SourceLine>& lines,
                                       const SourceChoice& choice);

/// What the tries of a span of time come to.
struct TrySpan {
    /// The word for the most notable one: a failure, then news.
    enum class Kind { none, unchanged, full, news, failed };

    kit::Instant from{};
    Kind kind = Kind::none;
    std::int64_t tries = 0;
    std::int64_t failed = 0;
    std::int64_t added = 0;  ///< new stories

    bool operator==(const TrySpan&) const = default;
};

/// Failures in a row, for the same reason.
struct FailureRun {
    kit::Instant from{};
    kit::Instant to{};
    std::int64_t tries = 0;
    std::string reason{};

    bool operator==(const FailureRun&) const = default;
};

struct TryHistory {
    std::vector<TrySpan> spans{};  ///< of the days that tries are kept for, the oldest first
    std::int64_t tries = 0;
    std::int64_t failed = 0;
    std::vector<FailureRun> failures{};  ///< the newest first
};

inline constexpr std::chrono::hours kTrySpan{2};

/// `tries` has the oldest first.
TryHistory tryHistory(const std::vector<SourceTry>& tries, kit::Instant now);

}  // namespace app
