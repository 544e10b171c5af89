#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Backend/BackendFinding.h"

namespace kit {

/// An entry that differs from the confirmed state; without `after` it is gone.
struct RecordChange {
    std::string key{};
    std::optional<WatchedRecord> after{};

    bool operator==(const RecordChange&) const = default;
};

struct KnownState {
    std::string digest{};
    Instant seenAt{};

    bool operator==(const KnownState&) const = default;
};

/// What the watch of one file remembers.
struct WatchState {
    std::int64_t rules = 0;  ///< by which the entries were read
    std::int64_t polls = 0;
    Instant lastPoll{};
    Instant pollBefore{};
    std::vector<WatchedRecord> confirmed{};
    std::vector<RecordChange> pending{};            ///< of the last poll, not confirmed yet
    std::map<std::string, std::int64_t> changes{};  ///< of each path, in the first polls
    std::vector<std::string> volatilePaths{};       ///< muted: they changed in most first polls
    std::map<std::string, Instant> cameAt{};        ///< entries that came in the last days
    std::vector<KnownState> states{};               ///< the latest last
    std::vector<std::string> identifiers{};         ///< of all devices ever named; sorted
    bool isReturnTold = false;                      ///< since a state came that was not known
    std::optional<std::string> entityTag{};         ///< of the last answer
    std::optional<std::string> lastModified{};

    bool operator==(const WatchState&) const = default;
};

template <>
struct JSONFields<RecordChange> {
    static constexpr auto fields =
        std::tuple{field("key", &RecordChange::key), field("after", &RecordChange::after)};
};

template <>
struct JSONFields<KnownState> {
    static constexpr auto fields =
        std::tuple{field("digest", &KnownState::digest), field("seenAt", &KnownState::seenAt)};
};

template <>
struct JSONFields<WatchState> {
    static constexpr auto fields = std::tuple{
        field("rules", &WatchState::rules),
        field("polls", &WatchState::polls),
        field("lastPoll", &WatchState::lastPoll),
        field("pollBefore", &WatchState::pollBefore),
        field("confirmed", &WatchState::confirmed),
        field("pending", &WatchState::pending),
        field("changes", &WatchState::changes),
        field("volatilePaths", &WatchState::volatilePaths),
        field("cameAt", &WatchState::cameAt),
        field("states", &WatchState::states),
        field("identifiers", &WatchState::identifiers),
        field("isReturnTold", &WatchState::isReturnTold),
        field("entityTag", &WatchState::entityTag),
        field("lastModified", &WatchState::lastModified),
    };
};

struct WatchPoll {
    WatchState state{};
    std::vector<BackendFinding> findings{};
};

/// One good answer of a watched file, read by readWatchedRecords. A change counts once two polls
/// in a row show it. The first answer is the baseline, of which nothing is found; so is the first
/// one after the rules of reading have changed.
WatchPoll pollWatchedFile(const WatchedFile& file, WatchState state,
                          std::vector<WatchedRecord> latest, Instant now);

/// Whether the next poll may be answered with "not modified": not while a change waits to be
/// confirmed, since a cache that repeats itself confirms nothing.
bool mayBeConditional(const WatchState& state);

/// The state after a poll that was answered so.
WatchState unchangedAt(Instant now, WatchState state);

}  // namespace kit
