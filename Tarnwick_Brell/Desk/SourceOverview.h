#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/Tables/SourceStatus.h"

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
    std::string words{};  ///< all must be in the name, the group or an address, in any case
    SourceOrder order = SourceOrder::attention;
    bool isReversed = false;
};

bool isIn(SourceSubset subset, const SourceLine& line);

/// The lines of the choice in its order, as places in `lines`. What is not known comes last,
/// also in the reversed order; equal lines stay in their order.
std::vector<std::size_t> chosenSources(const std::vector<SourceLine>& lines,
                                       const SourceChoice& choice);

}  // namespace app
