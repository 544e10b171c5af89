#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"

#include <utility>

namespace app {

using kit::Story;

namespace {

/// A story that the user has read before it came, on another computer or before it was dropped, is
/// no news.
bool isNews(const StoredStory& stored) {
    return stored.arrival == Arrival::fresh && !stored.readAt;
}

}  // namespace

DeskUpdateBuilder::DeskUpdateBuilder(LocalStore& store, kit::Clock clock,
                                     const std::atomic<bool>& isClosing)
    : store_(store), clock_(std::move(clock)), isClosing_(isClosing), roster_(store.sources()) {}

DeskUpdate DeskUpdateBuilder::newest(std::size_t count) {
    DeskUpdate step;
    Wire::Batch stories;
    store_.stories().eachViewInWireOrder(std::nullopt, [&](const StoryView& story) {
        stories.push_back(PackedStory::make(story));
        return stories.size() < count;
    });
    step.wire.emplace().replace(std::move(stories));
    step.roster = toldRoster_ = rosterState();
    step.sourceStates = toldStates_ = sourceStates();
    addTimes(step);
    return step;
}

DeskUpdate DeskUpdateBuilder::everything() {
    DeskUpdate step;
    step.isWholeWire = true;
    Wire::Batch stories;
    // Before reading: what comes meanwhile is read twice rather than not at all.
    stamp_ = store_.state().lastStamp();
    store_.hasForeignChanges();
    const auto recent = clock_() - kClustered;
    std::vector<Story> clustered;
    store_.stories().eachViewInWireOrder(std::nullopt, [&](const StoryView& story) {
        if (story.publishedAt >= recent) clustered.push_back(story.stored().story);
        stories.push_back(PackedStory::make(story));
        return !isClosing_;
    });
    step.wire.emplace().replace(std::move(stories));
    cluster(clustered);
    return step;
}

DeskUpdate DeskUpdateBuilder::kept(CommittedBatch pass) {
    DeskUpdate result;
    if (pass.stamp) noteOwnWrite(*pass.stamp);
    std::vector<Story> clustered;
    const auto recent = clock_() - kClustered;
    for (auto* list : {&pass.added, &pass.revised}) {
        for (const auto& stored : *list) {
            if (stored.story.publishedAt >= recent) clustered.push_back(stored.story);
            result.stories.push_back(PackedStory::make(stored));
        }
    }
    for (const auto& stored : pass.added) {
        if (isNews(stored)) result.news.push_back(stored.number);
    }
    cluster(clustered);
    if (!pass.added.empty()) result.lastArrival = clock_();
    SourceStates states = toldStates_;
    for (const auto& outcome : pass.outcomes) {
        if (!outcome.status.lastAttempt) continue;
        states.statuses[outcome.source.id] = outcome.status;
        states.healths[outcome.source.id] = outcome.health;
    }
    if (states != toldStates_) result.sourceStates = toldStates_ = std::move(states);
    return result;
}

DeskUpdate DeskUpdateBuilder::finished() {
    DeskUpdate step;
    addTimes(step);
    if (std::exchange(clustersChanged_, false)) step.clusters = clusters();
    return step;
}

DeskUpdate DeskUpdateBuilder::rosterChanged() {
    DeskUpdate step;
    step.roster = toldRoster_ = rosterState();
    return step;
}

std::optional<DeskUpdate> DeskUpdateBuilder::foreignChanges() {
    // A look that fails half-way is taken again.
    hasUnread_ = store_.hasForeignChanges() || hasUnread_;
    if (!hasUnread_) return std::nullopt;
    DeskUpdate step;
    const auto last = store_.state().lastStamp();
    std::vector<Story> clustered;
    const auto recent = clock_() - kClustered;
    store_.stories().eachChangedAfter(stamp_, [&](const StoredStory& stored) {
        if (stored.story.publishedAt >= recent) clustered.push_back(stored.story);
        if (isNews(stored)) step.news.push_back(stored.number);
        step.stories.push_back(PackedStory::make(stored));
        return true;
    });
    stamp_ = last;
    cluster(clustered);
    if (std::exchange(clustersChanged_, false)) step.clusters = clusters();
    roster_.reload();
    if (auto roster = rosterState(); roster != toldRoster_) {
        step.roster = toldRoster_ = std::move(roster);
    }
    if (auto states = sourceStates(); states != toldStates_) {
        step.sourceStates = toldStates_ = std::move(states);
    }
    addTimes(step);
    hasUnread_ = false;
    return step;
}

void DeskUpdateBuilder::noteOwnWrite(std::int64_t stamp) {
    // With another program's write in between both are read again at the next look.
    if (stamp == stamp_ + 1) stamp_ = stamp;
}

SourceListState DeskUpdateBuilder::rosterState() const {
    SourceListState state{.sources = roster_.sources()};
    for (const auto& source : roster_.enabledSources()) state.enabled.insert(source.id);
    return state;
}

SourceStates DeskUpdateBuilder::sourceStates() {
    return {.statuses = store_.sources().statuses(), .healths = store_.sources().healths()};
}

void DeskUpdateBuilder::cluster(const std::vector<Story>& stories) {
    if (stories.empty()) return;
    clusterer_.add(stories);
    clustersChanged_ = true;
}

std::vector<kit::StoryCluster> DeskUpdateBuilder::clusters() {
    clusterer_.forgetBefore(clock_() - kClustered);
    return clusterer_.clusters();
}

void DeskUpdateBuilder::addTimes(DeskUpdate& step) {
    step.lastRefresh = store_.state().instant(DeskState::kLastRefresh);
    step.lastArrival = store_.state().instant(DeskState::kLastArrival);
    step.newSince = store_.state().instant(DeskState::kNewSince);
    step.clockConfirmed = store_.state().instant(DeskState::kClockConfirmed);
    step.canUndo = store_.marks().canUndo();
}

}  // namespace app
