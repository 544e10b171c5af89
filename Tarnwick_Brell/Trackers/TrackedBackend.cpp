#include "Tarnwick_Brell/Trackers/TrackedBackend.h"

#include "NewsroomKit/Backend/BackendSignals.h"
#include "NewsroomKit/Backend/BackendWatch.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"

namespace app {

using kit::WatchedAnswer;
using kit::WatchedFile;

namespace {

/// The tracker's intervals vary; a file is not to miss its turn by a minute.
constexpr std::chrono::minutes kIntervalSlack{3};

void recordPoll(LocalStore& store, const WatchedFile& file, const WatchedAnswer& answer,
                kit::Instant now) {
    if (!answer.records || !answer.body) return;
    auto& history = store.findings();
    auto poll = kit::pollWatchedFile(file, history.watch(file.id).value_or(kit::WatchState()),
                                     *answer.records, now);
    poll.state.entityTag = answer.validators.entityTag;
    poll.state.lastModified = answer.validators.lastModified;
    history.add(file.id, poll, *answer.body);
    store.signalLog().add(kit::signalsOf(poll.findings));
}

kit::Validators validatorsOfLast(LocalStore& store, const WatchedFile& file) {
    const auto state = store.findings().watch(file.id);
    if (!state || !kit::mayBeConditional(*state)) return {};
    return {state->entityTag, state->lastModified};
}

void recordUnchanged(LocalStore& store, const WatchedFile& file, kit::Instant now) {
    auto& history = store.findings();
    if (auto state = history.watch(file.id))
        history.setWatch(file.id, kit::unchangedAt(now, std::move(*state)));
}

ConditionalFetch<WatchedAnswer> conditionalFetch(const WatchedFile& file) {
    return {.validators = [&file](LocalStore& store) { return validatorsOfLast(store, file); },
            .fetch =
                [&file](kit::HTTPClient& http, kit::Validators known) {
                    return kit::BackendAPI::file(http, file, std::move(known));
                },
            .recordUnchanged = [&file](LocalStore& store,
                                       kit::Instant now) { recordUnchanged(store, file, now); }};
}

}  // namespace

TrackedFile<WatchedAnswer> backendFile(const WatchedFile& file) {
    return {
        .tracker = Tracker::backend,
        .name = "backend/" + std::string(file.id),
        .title = std::string(file.name),
        .address = std::string(file.address),
        .fetch = [&file](kit::HTTPClient& http) { return kit::BackendAPI::file(http, file, {}); },
        .parse = kit::BackendAPI::parse,
        .conditional = conditionalFetch(file),
        .emptyAnswer = EmptyAnswer::refusedAfterItems,
        .isEmpty = [](const WatchedAnswer& answer) { return answer.entries == 0; },
        .notFoundText = "Apple no longer has this file.",
        .untrustedHint = file.source == kit::WatchedSource::gdmf
                             ? TrackedFiles::catalogueAuthorityHint()
                             : std::string(),
        .leastInterval = file.interval - kIntervalSlack,
        .pausesWhenForbidden = true,
        .record = [&file](LocalStore& store, const auto&, const auto& answer,
                          kit::Instant now) { recordPoll(store, file, answer, now); }};
}

std::vector<TrackedFile<WatchedAnswer>> backendFiles() {
    std::vector<TrackedFile<WatchedAnswer>> files;
    for (const auto& file : kit::watchedFiles()) files.push_back(backendFile(file));
    return files;
}

}  // namespace app
