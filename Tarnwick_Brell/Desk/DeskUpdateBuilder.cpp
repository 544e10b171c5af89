#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"

#include <memory>
#include <utility>

#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

/// A story that the user had read before it came, on another computer or before it was dropped,
/// is no news.
bool isNews(const StoredStory& stored) {
    return stored.arrival == Arrival::fresh && !stored.readAt;
}

}  // namespace

DeskUpdateBuilder::DeskUpdateBuilder(LocalStore& store, kit::Clock clock,
                                     const std::atomic<bool>& isClosing)
    : store_(store), clock_(std::move(clock)), isClosing_(isClosing), registry_(store.sources()) {}

DeskUpdate DeskUpdateBuilder::newestStories(std::size_t count) {
    DeskUpdate update;
    Wire::Batch stories;
    store_.stories().eachViewInWireOrder(std::nullopt, [&](const StoryView& story) {
        stories.push_back(PackedStory::make(story));
        return stories.size() < count;
    });
    update.wire.emplace().replace(std::move(stories));
    addCorrections(update);
    update.sourceList = sentSources_ = registry_.state();
    update.sourceStates = sentStates_ = readSourceStates();
    addTimes(update);
    return update;
}

DeskUpdate DeskUpdateBuilder::wholeWire() {
    DeskUpdate update;
    update.isWholeWire = true;
    Wire::Batch stories;
    // Before reading, so that stories that come meanwhile are read twice rather than not at all.
    stamp_ = store_.state().lastStamp();
    store_.hasForeignChanges();
    store_.stories().eachViewInWireOrder(std::nullopt, [&](const StoryView& story) {
        stories.push_back(PackedStory::make(story));
        return !isClosing_;
    });
    update.wire.emplace().replace(std::move(stories));
    return update;
}

DeskUpdate DeskUpdateBuilder::firstClusters() {
    const auto now = clock_();
    std::size_t count = 0;
    store_.stories().eachInWireOrder(
        now - kit::RecentClusters::kSpan, [&](const StoredStory& stored) {
            clusters_.add(stored.story, now);
            return ++count < kit::RecentClusters::kMostStories && !isClosing_;
        });
    DeskUpdate update;
    addTimes(update);
    addClusters(update);
    return update;
}

DeskUpdate DeskUpdateBuilder::committed(CommittedBatch batch) {
    DeskUpdate update;
    if (batch.stamp) recordOwnWrite(*batch.stamp);
    const auto now = clock_();
    const auto overlay = store_.corrections().overlay();
    for (auto* list : {&batch.added, &batch.revised}) {
        for (auto& stored : *list) {
            overlay->applyTo(stored.story);
            clusters_.add(stored.story, now);
            update.stories.push_back(PackedStory::make(stored));
        }
    }
    for (const auto& stored : batch.added) {
        if (isNews(stored)) update.news.push_back(stored.number);
    }
    if (!batch.added.empty()) update.lastArrival = now;
    SourceStates states = sentStates_;
    for (const auto& outcome : batch.outcomes) {
        if (!outcome.status.lastAttempt) continue;
        states.statuses[outcome.source.id] = outcome.status;
        states.healths[outcome.source.id] = outcome.health;
    }
    if (states != sentStates_) update.sourceStates = sentStates_ = std::move(states);
    return update;
}

DeskUpdate DeskUpdateBuilder::passEnded() {
    DeskUpdate update;
    addTimes(update);
    if (clusters_.hasChanged()) addClusters(update);
    return update;
}

DeskUpdate DeskUpdateBuilder::corrected(std::int64_t stamp) {
    DeskUpdate update;
    addCorrections(update);
    store_.stories().eachChangedAfter(stamp - 1, [&](const StoredStory& stored) {
        clusters_.add(stored.story, clock_());
        update.stories.push_back(PackedStory::make(stored));
        return true;
    });
    recordOwnWrite(stamp);
    addClusters(update);
    return update;
}

DeskUpdate DeskUpdateBuilder::sourceList() {
    DeskUpdate update;
    update.sourceList = sentSources_ = registry_.state();
    return update;
}

std::optional<DeskUpdate> DeskUpdateBuilder::foreignChanges() {
    // Reading that throws half-way is repeated with the next call.
    hasUnread_ = store_.hasForeignChanges() || hasUnread_;
    if (!hasUnread_) return std::nullopt;
    DeskUpdate update;
    const auto last = store_.state().lastStamp();
    const auto now = clock_();
    store_.corrections().reload();
    addCorrections(update);
    store_.stories().eachChangedAfter(stamp_, [&](const StoredStory& stored) {
        clusters_.add(stored.story, now);
        if (isNews(stored)) update.news.push_back(stored.number);
        update.stories.push_back(PackedStory::make(stored));
        return true;
    });
    stamp_ = last;
    if (clusters_.hasChanged()) addClusters(update);
    registry_.reload();
    if (auto sources = registry_.state(); sources != sentSources_) {
        update.sourceList = sentSources_ = std::move(sources);
    }
    if (auto states = readSourceStates(); states != sentStates_) {
        update.sourceStates = sentStates_ = std::move(states);
    }
    addTimes(update);
    hasUnread_ = false;
    return update;
}

void DeskUpdateBuilder::recordOwnWrite(std::int64_t stamp) {
    // With another program's write in between, foreignChanges() reads both again.
    if (stamp == stamp_ + 1) stamp_ = stamp;
}

SourceStates DeskUpdateBuilder::readSourceStates() {
    return {.statuses = store_.sources().statuses(), .healths = store_.sources().healths()};
}

void DeskUpdateBuilder::addCorrections(DeskUpdate& update) {
    CorrectionState state{.all = store_.corrections().all(),
                          .overlay = store_.corrections().overlay()};
    if (sentCorrections_.overlay && state == sentCorrections_) return;
    update.corrections = sentCorrections_ = std::move(state);
}

void DeskUpdateBuilder::addClusters(DeskUpdate& update) {
    clusters_.setCorrections(*store_.corrections().overlay());
    update.clusters =
        std::make_shared<const std::vector<kit::StoryCluster>>(clusters_.clusters(clock_()));
}

void DeskUpdateBuilder::addTimes(DeskUpdate& update) {
    update.lastRefresh = store_.state().instant(DeskState::kLastRefresh);
    update.lastArrival = store_.state().instant(DeskState::kLastArrival);
    update.newSince = store_.state().instant(DeskState::kNewSince);
    update.clockConfirmed = store_.state().instant(DeskState::kClockConfirmed);
    update.canUndo = store_.marks().canUndo();
}

}  // namespace app
