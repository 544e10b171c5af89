#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Signals/Signal.h"

namespace kit {

/// A line of the log: a signal, or what changed for a build on several devices within an hour.
struct ActivityRow {
    LoggedSignal logged{};               ///< the last logged of them
    std::string title{};                 ///< of all of them
    std::vector<std::string> devices{};  ///< by name, where there are several
    bool isNew = false;                  ///< logged since the last look

    bool operator==(const ActivityRow&) const = default;
};

/// `log`: the last logged first. `lookedAt`: the last signal of the last look.
std::vector<ActivityRow> activityRows(std::span<const LoggedSignal> log, std::int64_t lookedAt);

/// The wire from an hour before a signal was seen until an hour after it.
struct ActivityWire {
    Instant from{};
    Instant to{};
    std::vector<StoryMention> shared{};  ///< stories that share words with the signal, by time
    std::vector<StoryMention> others{};  ///< by time
    /// How long before the first of the shared stories the signal was seen; negative when a story
    /// came first.
    std::optional<Instant::duration> lead{};

    std::size_t total() const { return shared.size() + others.size(); }

    bool operator==(const ActivityWire&) const = default;
};

inline constexpr std::chrono::hours kWireAround{1};

/// `stories`: those of that time at least.
ActivityWire wireAround(const Signal& signal, std::span<const PanelStory> stories);

}  // namespace kit
