#include "Tarnwick_Brell/Desk/NewsDesk.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "NewsroomKit/Outlines/Outlines.h"
#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Desk/DeskJobs.h"
#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Desk/LinkResolver.h"
#include "Tarnwick_Brell/Desk/MarksController.h"
#include "Tarnwick_Brell/Desk/RefreshPass.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Storage/SQLite/SearchText.h"
#include "Tarnwick_Brell/Storage/Tables/StoryNumber.h"
#include "Tarnwick_Brell/Storage/Tables/StorySelection.h"

namespace app {

using kit::Instant;
using WorkerContext = DeskWorker::WorkerContext;

namespace {

constexpr std::size_t kFirstView = 500;
// An hour's requests; the newest clusters come first.
constexpr std::size_t kMostClustered = 60;
constexpr std::chrono::milliseconds kBetweenForeignChecks = std::chrono::seconds(2);

}  // namespace

NewsDesk::NewsDesk(const std::filesystem::path& library, kit::CurlTransport::Options network,
                   Defaults& defaults, kit::Clock clock)
    : defaults_(defaults),
      clock_(std::move(clock)),
      jobs_(std::make_unique<DeskJobs>(
          library, std::move(network), clock_,
          DeskJobs::Receiver{.apply = [this](DeskUpdate update) { apply(std::move(update)); },
                             .fail =
                                 [this](const QString& sentence, bool isDamaged) {
                                     isDamaged ? emit libraryDamaged(sentence)
                                               : emit failed(sentence);
                                 }})) {
    sources_ = std::make_unique<SourceController>(*jobs_, defaults, clock_);
    marks_ = std::make_unique<MarksController>(wire_, *jobs_, clock_);
    refresh_ = std::make_unique<RefreshController>(*jobs_, *sources_, defaults, clock_);
    links_ = std::make_unique<LinkResolver>(*jobs_, clock_);
    corrections_ = std::make_unique<Corrections>(*jobs_, clock_);
    connect(marks_.get(), &MarksController::marksChanged, this, &NewsDesk::marksChanged);
    connect(marks_.get(), &MarksController::undoChanged, this, &NewsDesk::undoChanged);
    connect(marks_.get(), &MarksController::failed, this, &NewsDesk::failed);
    connect(refresh_.get(), &RefreshController::changed, this, &NewsDesk::refreshChanged);
    connect(refresh_.get(), &RefreshController::passEnded, this, &NewsDesk::finishPass);
    connect(refresh_.get(), &RefreshController::networkReturned, this, &NewsDesk::networkReturned);
}

NewsDesk::~NewsDesk() = default;

DeskWorker& NewsDesk::worker() { return jobs_->worker(); }

void NewsDesk::deliver(CommittedBatch batch) {
    jobs_->deliver(jobs_->updates().committed(std::move(batch)));
}

// Loading and following the library.

void NewsDesk::start() {
    const auto load = [this](WorkerContext& context) {
        jobs_->beginUpdates(context);
        jobs_->deliver(jobs_->updates().newestStories(kFirstView));
        jobs_->deliver(jobs_->updates().wholeWire());
        jobs_->deliver(jobs_->updates().firstClusters());
    };
    worker().post(load, [this](const std::exception& error) {
        jobs_->deliver(
            [this, sentence = QString::fromUtf8(error.what())] { emit loadFailed(sentence); });
    });
}

void NewsDesk::followOtherPrograms() {
    const auto check = [this](WorkerContext&) {
        if (auto update = jobs_->updates().foreignChanges()) {
            jobs_->deliver(std::move(*update));
            jobs_->deliver([this] { emit libraryChangedElsewhere(); });
        }
    };
    worker().repeat(kBetweenForeignChecks, check, jobs_->reportFailure());
}

void NewsDesk::apply(DeskUpdate update) {
    if (update.lastRefresh) lastRefresh_ = update.lastRefresh;
    if (update.lastArrival) lastArrival_ = update.lastArrival;
    if (update.clockConfirmed) clockConfirmed_ = update.clockConfirmed;
    // An update that was made before the user left the window has an older moment.
    const bool isLater = update.newSince <= clock_() && update.newSince > newSince();
    if (isLater) newSince_ = update.newSince;
    if (update.canUndo) marks_->applyCanUndo(*update.canUndo);
    if (sources_->apply(update)) emit sourcesChanged();
    if (update.corrections) corrections_->apply(std::move(*update.corrections));
    if (update.wire || !update.stories.empty()) applyStories(update);
    if (!update.news.empty()) applyNews(std::move(update.news));
    if (update.clusters) {
        clusters_ = std::move(update.clusters);
        emit clustersChanged();
        resolveClustered();
    }
    if (update.isWholeWire) finishLoading();
}

void NewsDesk::applyStories(DeskUpdate& update) {
    // Stories that another program has only marked or revised are no news.
    std::erase_if(update.news, [&](auto number) { return wire_.placeOf(number).has_value(); });
    WireChange change{.isReset = true};
    if (update.wire) {
        wire_ = std::move(*update.wire);
    } else {
        change = wire_.merge(std::move(update.stories));
    }
    marks_->reapplyPending();
    isLoaded_ = isLoaded_ || update.isWholeWire;
    emit wireChanged(change);
}

void NewsDesk::applyNews(std::vector<std::int64_t> news) {
    std::sort(news.begin(), news.end(), std::greater());
    emit newsStored(news);
    if (isRefreshing()) {
        newsOfPass_.insert(newsOfPass_.end(), news.begin(), news.end());
    } else {
        announce(std::move(news));
    }
}

void NewsDesk::finishLoading() {
    dropOldAtStart();
    followOtherPrograms();
    emit loaded();
    refresh_->start(lastRefresh_);
}

// Passes.

void NewsDesk::refreshAll() { refresh_->refreshAll(); }
void NewsDesk::refreshSource(const std::string& id) { refresh_->refreshSource(id); }
void NewsDesk::cancelRefresh() { refresh_->cancel(); }
void NewsDesk::goLive(Instant until) { refresh_->goLive(until); }
void NewsDesk::endLive() { refresh_->endLive(); }

void NewsDesk::goLiveDuring(const std::vector<kit::AppleCalendarEvent>& events) {
    refresh_->goLiveDuring(events);
}

void NewsDesk::finishPass(const PassReport& report) {
    dropOld(report.droppedBefore);
    announce(std::exchange(newsOfPass_, {}));
    emit refreshChanged();
    emit passEnded(report);
}

void NewsDesk::onNewStories(NewStories callback) { onNewStories_ = std::move(callback); }

void NewsDesk::announce(std::vector<std::int64_t> numbers) {
    if (numbers.empty() || !onNewStories_) return;
    std::sort(numbers.begin(), numbers.end(), std::greater());
    std::vector<kit::Story> news;
    for (const auto number : numbers) {
        if (const auto place = wire_.placeOf(number)) {
            news.push_back(wire_[*place].unpacked().story);
        }
    }
    onNewStories_(news);
}

/// Until a server confirms the clock, it counts only up to the last moment that one did.
void NewsDesk::dropOldAtStart() {
    if (!clockConfirmed_) return dropOld(std::nullopt);
    const PassSettings settings{.retention =
                                    std::chrono::duration<double>(defaults_.storyRetention())};
    dropOld(settings.oldestStored(std::min(clock_(), *clockConfirmed_)));
}

/// Drops what the library has dropped. Without a moment nothing is dropped for its age.
void NewsDesk::dropOld(std::optional<Instant> publishedBefore) {
    const auto lowest = publishedBefore ? firstStoryNumber(*publishedBefore)
                                        : std::numeric_limits<std::int64_t>::min();
    const auto change = wire_.drop(lowest, kStoryCeiling);
    if (!change.isEmpty()) emit wireChanged(change);
}

// Marks.

bool NewsDesk::isRead(std::string_view storyID) const {
    const auto* story = wire_.find(storyID);
    return story && story->isRead();
}

bool NewsDesk::isSaved(std::string_view storyID) const {
    const auto* story = wire_.find(storyID);
    return story && story->isSaved();
}

std::optional<Instant> NewsDesk::firstSeen(std::string_view storyID) const {
    const auto* story = wire_.find(storyID);
    return story ? std::optional(story->firstSeen()) : std::nullopt;
}

/// A moment in the future was recorded while the clock was wrong.
std::optional<Instant> NewsDesk::newSince() const {
    return newSince_ && *newSince_ <= clock_() ? newSince_ : std::nullopt;
}

void NewsDesk::markLeft(Instant at) {
    newSince_ = at;
    jobs_->post(
        [at](WorkerContext& context) { context.store.state().set(DeskState::kNewSince, at); });
    emit newSinceChanged();
}

void NewsDesk::setRead(const std::vector<std::string>& storyIDs, bool read, Undoable undoable) {
    marks_->setRead(storyIDs, read, undoable);
    // One story is read by someone, many are only marked.
    if (read && storyIDs.size() == 1) {
        links_->want(redirected(storyIDs), LinkResolver::Urgency::soon);
    }
}

void NewsDesk::setSaved(const std::vector<std::string>& storyIDs, bool saved) {
    marks_->setSaved(storyIDs, saved);
    if (saved) links_->want(redirected(storyIDs), LinkResolver::Urgency::soon);
}

std::size_t NewsDesk::markAllRead(const std::vector<std::int64_t>& numbers) {
    return marks_->markAllRead(numbers);
}

bool NewsDesk::undoMarks() { return marks_->undo(); }
bool NewsDesk::canUndo() const { return marks_->canUndo(); }

// Redirect links.

std::vector<std::string> NewsDesk::redirected(const std::vector<std::string>& storyIDs) const {
    std::vector<std::string> needing;
    for (const auto& id : storyIDs) {
        const auto* story = wire_.find(id);
        if (story && story->unpacked().story.needsArticleLink()) needing.push_back(id);
    }
    return needing;
}

/// Clusters and who was first depend on the articles of their stories.
void NewsDesk::resolveClustered() {
    std::vector<std::string> needing;
    for (const auto& cluster : *clusters_) {
        if (needing.size() >= kMostClustered) break;
        const auto more = redirected(cluster.storyIDs);
        needing.insert(needing.end(), more.begin(), more.end());
    }
    links_->want(std::move(needing), LinkResolver::Urgency::later);
}

// Sources.

void NewsDesk::setEnabled(const std::string& sourceID, bool enabled) {
    sources_->setEnabled(sourceID, enabled);
}

void NewsDesk::setSourceOptions(const std::string& sourceID, const SourceOptions& options) {
    sources_->setOptions(sourceID, options);
}

void NewsDesk::readTries(const std::string& sourceID, TriesRead done) {
    sources_->readTries(sourceID, std::move(done));
}

void NewsDesk::countTries(TriesCounted done) { sources_->countTries(std::move(done)); }

void NewsDesk::readPauses(PausesRead done) { sources_->readPauses(std::move(done)); }

std::uint64_t NewsDesk::checkAddress(std::string typed, kit::FetchWatch watch,
                                     AddressChecked done) {
    return sources_->check(std::move(typed), std::move(watch), std::move(done));
}

void NewsDesk::cancelCheck(std::uint64_t check) { sources_->cancelCheck(check); }

void NewsDesk::renameSource(const std::string& id, const std::string& name) {
    sources_->rename(id, name);
}

void NewsDesk::removeSources(std::vector<std::string> ids) { sources_->remove(std::move(ids)); }

void NewsDesk::readOutlines(std::filesystem::path file, ListRead done) {
    sources_->readList(std::move(file), std::move(done));
}

void NewsDesk::importOutlines(kit::Outlines outlines, ImportWatch watch, Imported done) {
    sources_->import(std::move(outlines), std::move(watch), std::move(done));
}

// Search.

void NewsDesk::search(const std::string& typed, std::size_t limit, Found done) {
    const auto turn = ++lastSearch_;
    newestSearch_ = turn;
    jobs_->post([this, turn, typed, limit, done = std::move(done)](WorkerContext& context) {
        // The user has typed on: the answer would come too late.
        if (newestSearch_ != turn || context.isClosing) return;
        const StorySelection selection{
            .search = SearchText::parse(typed, SearchText::LastWord::stillTyped)};
        std::vector<std::int64_t> found;
        if (!selection.search.isEmpty() && limit > 0) {
            context.store.search().each(selection, [&](const StoredStory& stored) {
                found.push_back(stored.number);
                return found.size() < limit;
            });
        }
        jobs_->deliver([this, turn, done, found = std::move(found)] {
            if (turn == lastSearch_) done(found);
        });
    });
}

}  // namespace app
