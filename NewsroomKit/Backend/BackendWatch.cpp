#include "NewsroomKit/Backend/BackendWatch.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <set>
#include <tuple>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Backend/PropertyList.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

using Records = std::vector<WatchedRecord>;

// Raised when readers change what an entry is: differences are then ours, not Apple's.
constexpr std::int64_t kReadingRules = 1;
constexpr std::int64_t kLearningPolls = 8;
constexpr std::int64_t kVolatileChanges = 3;
constexpr std::size_t kMostStates = 30;
constexpr std::chrono::days kCameLately{7};
constexpr std::string_view kDevicesField = "SupportedDevices";

bool learnsVolatilePaths(WatchedSource source) {
    return source == WatchedSource::configuration || source == WatchedSource::json ||
           source == WatchedSource::plist;
}

/// The place of an entry in the file: items of a list share one.
std::string pathOf(const std::string& key) {
    const auto list = key.find('[');
    if (list == key.npos) return key;
    const auto end = list > 0 && key[list - 1] == '/' ? list - 1 : list;
    return key.substr(0, end) + "[]";
}

bool isMuted(const WatchState& state, const std::string& key) {
    const auto& paths = state.volatilePaths;
    return std::ranges::find(paths, key) != paths.end() ||
           std::ranges::find(paths, pathOf(key)) != paths.end();
}

void dropMuted(const WatchState& state, Records& records) {
    if (state.volatilePaths.empty()) return;
    std::erase_if(records, [&](const WatchedRecord& record) { return isMuted(state, record.key); });
}

void dropIgnored(const WatchedFile& file, Records& records) {
    for (auto& record : records) {
        for (const auto name : file.ignoredFields) record.fields.erase(std::string(name));
    }
}

std::string digestOf(const Records& records) {
    std::string text;
    for (const auto& record : records) {
        text += record.key + '\0';
        for (const auto& [name, value] : record.fields) text += name + '\1' + value + '\2';
    }
    return std::string(describedData(text));
}

std::vector<RecordChange> changesBetween(const Records& before, const Records& after) {
    std::vector<RecordChange> changes;
    auto old = before.begin();
    auto fresh = after.begin();
    while (old != before.end() || fresh != after.end()) {
        if (fresh == after.end() || (old != before.end() && old->key < fresh->key)) {
            changes.push_back({.key = (old++)->key});
        } else {
            const bool isKept = old != before.end() && old->key == fresh->key;
            if (!isKept || *old != *fresh) changes.push_back({fresh->key, *fresh});
            if (isKept) ++old;
            ++fresh;
        }
    }
    return changes;
}

/// Both sorted by key.
Records applied(const Records& records, const std::vector<RecordChange>& changes) {
    Records result;
    auto change = changes.begin();
    for (const auto& record : records) {
        for (; change != changes.end() && change->key < record.key; ++change) {
            if (change->after) result.push_back(*change->after);
        }
        if (change == changes.end() || change->key != record.key) {
            result.push_back(record);
        } else if (const auto& after = (change++)->after) {
            result.push_back(*after);
        }
    }
    for (; change != changes.end(); ++change) {
        if (change->after) result.push_back(*change->after);
    }
    return result;
}

/// Whether it may turn out to be volatile: it changed more than once in the first polls.
bool isSuspect(const WatchState& state, const std::string& key) {
    const auto isOften = [&](const std::string& path) {
        const auto count = state.changes.find(path);
        return count != state.changes.end() && count->second > 1;
    };
    return isOften(key) || isOften(pathOf(key));
}

/// Those of the last poll that this one shows again.
std::vector<RecordChange> repeatedChanges(const WatchState& state,
                                          const std::vector<RecordChange>& changes) {
    std::vector<RecordChange> repeated;
    auto old = state.pending.begin();
    for (const auto& change : changes) {
        while (old != state.pending.end() && old->key < change.key) ++old;
        const bool isRepeated = old != state.pending.end() && *old == change;
        if (isRepeated && !isSuspect(state, change.key)) repeated.push_back(change);
    }
    return repeated;
}

/// Whether entries that are gone may only have other names in every answer: of the last poll's
/// arrivals some are gone again, and as many others came.
bool mayBeRenamed(const WatchState& state, const std::vector<RecordChange>& changes,
                  const std::vector<RecordChange>& repeated) {
    const auto arrivals = [&](const std::vector<RecordChange>& from,
                              const std::vector<RecordChange>& unless) {
        return std::ranges::count_if(from, [&](const RecordChange& change) {
            return change.after &&
                   !std::ranges::binary_search(unless, change.key, {}, &RecordChange::key);
        });
    };
    const auto gone =
        std::ranges::count_if(repeated, [](const RecordChange& change) { return !change.after; });
    return gone > 0 && arrivals(state.pending, changes) > 0 &&
           arrivals(changes, state.pending) >= gone;
}

void dropRepeated(const std::vector<RecordChange>& repeated, std::vector<RecordChange>& changes) {
    auto next = repeated.begin();
    std::erase_if(changes, [&](const RecordChange& change) {
        const bool isRepeated = next != repeated.end() && next->key == change.key;
        if (isRepeated) ++next;
        return isRepeated;
    });
}

void learn(WatchState& state, const Records& latest) {
    std::set<std::string> paths;
    const auto last = applied(state.confirmed, state.pending);
    const auto diff = compareRecords(last, latest);
    for (const auto& record : diff.added) paths.insert(pathOf(record.key));
    for (const auto& record : diff.removed) paths.insert(pathOf(record.key));
    for (const auto& change : diff.changed) paths.insert(change.key);
    bool isNew = false;
    for (const auto& path : paths) {
        if (++state.changes[path] != kVolatileChanges) continue;
        state.volatilePaths.push_back(path);
        isNew = true;
    }
    if (state.polls + 1 >= kLearningPolls) state.changes.clear();
    if (!isNew) return;
    dropMuted(state, state.confirmed);
    std::erase_if(state.pending,
                  [&](const RecordChange& change) { return isMuted(state, change.key); });
    state.states = {{digestOf(state.confirmed), state.lastPoll}};
}

std::set<std::string> identifiersIn(const Records& records) {
    std::set<std::string> identifiers;
    for (const auto& record : records) {
        const auto field = record.fields.find(std::string(kDevicesField));
        if (field == record.fields.end()) continue;
        std::string_view text = field->second;
        // Items are joined by a comma and a space; identifiers have commas of their own.
        while (!text.empty()) {
            const auto end = std::min(text.find(", "), text.size());
            if (end > 0) identifiers.emplace(text.substr(0, end));
            text.remove_prefix(std::min(end + 2, text.size()));
        }
    }
    return identifiers;
}

std::vector<std::string> newIdentifiers(WatchState& state) {
    const auto named = identifiersIn(state.confirmed);
    std::vector<std::string> fresh;
    std::ranges::set_difference(named, state.identifiers, std::back_inserter(fresh));
    std::vector<std::string> all;
    std::ranges::set_union(named, state.identifiers, std::back_inserter(all));
    state.identifiers = std::move(all);
    return fresh;
}

/// How long the entries were there, of those that came and went in the last days.
std::optional<std::int64_t> minutesThere(const WatchState& state, const BackendFinding& finding) {
    std::optional<Instant> came;
    for (const auto& record : finding.removed) {
        const auto entry = state.cameAt.find(record.key);
        if (entry == state.cameAt.end()) return std::nullopt;
        came = std::min(came.value_or(entry->second), entry->second);
    }
    if (!came) return std::nullopt;
    return std::chrono::floor<std::chrono::minutes>(finding.seenAt - *came).count();
}

void setTimes(const WatchState& state, Instant now, std::vector<BackendFinding>& findings) {
    for (auto& finding : findings) {
        finding.notSeenAt = state.pollBefore;
        finding.seenAt = state.lastPoll;
        finding.confirmedAt = now;
        finding.minutesThere = minutesThere(state, finding);
        if (!finding.minutesThere) continue;
        finding.title += fmt::format(", gone again after {}", durationText(*finding.minutesThere));
    }
}

void rememberArrivals(WatchState& state, const RecordDiff& diff, Instant now) {
    for (const auto& record : diff.removed) state.cameAt.erase(record.key);
    std::erase_if(state.cameAt,
                  [&](const auto& entry) { return entry.second < now - kCameLately; });
    for (const auto& record : diff.added) state.cameAt.emplace(record.key, state.lastPoll);
}

/// Whether the confirmed state is one that the file has had before.
bool isReturn(WatchState& state) {
    const auto digest = digestOf(state.confirmed);
    const bool isKnown =
        std::ranges::find(state.states, digest, &KnownState::digest) != state.states.end();
    if (isKnown) return true;
    state.states.push_back({digest, state.lastPoll});
    if (state.states.size() > kMostStates) state.states.erase(state.states.begin());
    return false;
}

void markReturns(WatchState& state, std::vector<BackendFinding>& findings) {
    if (!isReturn(state)) {
        state.isReturnTold = false;
        return;
    }
    const bool isTold = !std::exchange(state.isReturnTold, true);
    for (auto& finding : findings) {
        finding.kind = FindingKind::wentBack;
        finding.isTold = finding.isTold && isTold;
    }
}

WatchState baseline(WatchState state, Records latest, Instant now) {
    WatchState first;
    first.rules = kReadingRules;
    first.polls = 1;
    first.lastPoll = first.pollBefore = now;
    first.identifiers = std::move(state.identifiers);
    first.confirmed = std::move(latest);
    first.states = {{digestOf(first.confirmed), now}};
    newIdentifiers(first);
    return first;
}

}  // namespace

WatchPoll pollWatchedFile(const WatchedFile& file, WatchState state, Records latest, Instant now) {
    dropIgnored(file, latest);
    if (state.polls == 0 || state.rules != kReadingRules)
        return {.state = baseline(std::move(state), std::move(latest), now)};
    dropMuted(state, latest);
    if (learnsVolatilePaths(file.source) && state.polls < kLearningPolls) {
        learn(state, latest);
        dropMuted(state, latest);
    }
    auto changes = changesBetween(state.confirmed, latest);
    auto repeated = repeatedChanges(state, changes);
    if (mayBeRenamed(state, changes, repeated))
        std::erase_if(repeated, [](const RecordChange& change) { return !change.after; });
    WatchPoll poll;
    if (!repeated.empty()) {
        const auto before = std::exchange(state.confirmed, applied(state.confirmed, repeated));
        const auto diff = compareRecords(before, state.confirmed);
        poll.findings = findingsOf(file, diff, before, state.confirmed, newIdentifiers(state));
        setTimes(state, now, poll.findings);
        markReturns(state, poll.findings);
        rememberArrivals(state, diff, now);
        dropRepeated(repeated, changes);
    }
    state.pending = std::move(changes);
    ++state.polls;
    state.pollBefore = std::exchange(state.lastPoll, now);
    poll.state = std::move(state);
    return poll;
}

bool mayBeConditional(const WatchState& state) {
    return state.polls > 0 && state.rules == kReadingRules && state.pending.empty();
}

WatchState unchangedAt(Instant now, WatchState state) {
    if (++state.polls == kLearningPolls) state.changes.clear();
    state.pollBefore = std::exchange(state.lastPoll, now);
    return state;
}

}  // namespace kit
