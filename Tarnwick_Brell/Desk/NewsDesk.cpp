#include "Tarnwick_Brell/Desk/NewsDesk.h"

#include <algorithm>
#include <random>
#include <utility>

#include <QMetaObject>

#include "Tarnwick_Brell/Storage/SearchText.h"
#include "Tarnwick_Brell/Storage/StoreError.h"
#include "Tarnwick_Brell/Storage/StorySelection.h"
#include "Tarnwick_Brell/Storage/StoryNumber.h"

namespace desk {

namespace asio = boost::asio;

using newsroom::Instant;
using newsroom::NewsSource;
using Bench = DeskWorker::Bench;

namespace {

constexpr std::size_t kFirstView = 500;
// Often enough to notice that the computer slept, seldom enough to let it idle.
constexpr std::chrono::milliseconds kLongestTick = std::chrono::seconds(30);
constexpr std::chrono::milliseconds kForeignLook = std::chrono::seconds(2);

std::chrono::milliseconds atRandomUpTo(std::chrono::milliseconds longest) {
    std::random_device source;
    return std::chrono::milliseconds(
        std::uniform_int_distribution<std::chrono::milliseconds::rep>(0, longest.count())(source));
}

}  // namespace

NewsDesk::NewsDesk(const std::filesystem::path& library, newsroom::CurlTransport::Options network,
                   Defaults& defaults, newsroom::FeedClient::Clock clock)
    : defaults_(defaults), clock_(std::move(clock)), worker_(library, std::move(network), clock_) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &NewsDesk::tick);
}

NewsDesk::~NewsDesk() = default;

/// The one way from the worker's thread to the main thread. What is still on it when the desk
/// goes is dropped.
void NewsDesk::deliver(std::function<void()> message) {
    {
        const std::lock_guard lock(mailLock_);
        mail_.push_back(std::move(message));
    }
    QMetaObject::invokeMethod(this, "takeMail", Qt::QueuedConnection);
}

void NewsDesk::takeMail() {
    std::vector<std::function<void()>> mail;
    {
        const std::lock_guard lock(mailLock_);
        mail.swap(mail_);
    }
    for (const auto& message : mail) message();
}

DeskWorker::Failed NewsDesk::failure(std::function<void()> undo) {
    return [this, undo = std::move(undo)](const std::exception& error) {
        const auto* store = dynamic_cast<const StoreError*>(&error);
        const bool isDamaged = store && store->reason() == StoreError::Reason::damaged;
        deliver([this, undo, isDamaged, sentence = QString::fromUtf8(error.what())] {
            if (undo) undo();
            isDamaged ? emit libraryDamaged(sentence) : emit failed(sentence);
        });
    };
}

void NewsDesk::post(DeskWorker::Job job, std::function<void()> undo) {
    worker_.post(std::move(job), failure(std::move(undo)));
}

/// Takes a step from the worker's thread over.
void NewsDesk::deliverStep(DeskStep step) {
    deliver([this, step = std::make_shared<DeskStep>(std::move(step))] { take(std::move(*step)); });
}

void NewsDesk::start() {
    const auto load = [this](Bench& bench) {
        backroom_ = std::make_unique<Backroom>(bench.store, clock_, bench.isClosing);
        deliverStep(backroom_->newest(kFirstView));
        deliverStep(backroom_->everything());
        deliverStep(backroom_->finished());
    };
    worker_.post(load, [this](const std::exception& error) {
        deliver([this, sentence = QString::fromUtf8(error.what())] { emit loadFailed(sentence); });
    });
}

/// Once the wire is there.
void NewsDesk::followOtherPrograms() {
    const auto lookAround = [this](Bench&) {
        if (auto step = backroom().foreignChanges()) deliverStep(std::move(*step));
    };
    worker_.repeat(kForeignLook, lookAround, failure());
}

Backroom& NewsDesk::backroom() {
    if (backroom_) return *backroom_;
    throw StoreError(StoreError::Reason::unreadable, "The library has not been read.");
}

RefreshCadence::Now NewsDesk::now() const {
    return {.wall = clock_(), .steady = std::chrono::steady_clock::now()};
}

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

const SourceStatus& NewsDesk::sourceStatus(const std::string& sourceID) const {
    static const SourceStatus none;
    const auto entry = sourceStates_.statuses.find(sourceID);
    return entry == sourceStates_.statuses.end() ? none : entry->second;
}

const SourceHealth& NewsDesk::sourceHealth(const std::string& sourceID) const {
    static const SourceHealth none;
    const auto entry = sourceStates_.healths.find(sourceID);
    return entry == sourceStates_.healths.end() ? none : entry->second;
}

std::optional<Instant> NewsDesk::liveUntil() const {
    return autoRefresh_ ? autoRefresh_->liveUntil(clock_()) : std::nullopt;
}

void NewsDesk::onNewStories(std::function<void(const Announcement&)> callback) {
    onNewStories_ = std::move(callback);
}

// Refreshing.

void NewsDesk::tick() {
    defaults_.reload();
    autoRefresh_->setInterval(std::chrono::minutes(defaults_.refreshMinutes()));
    if (autoRefresh_->isDue(now()) && !pass_) ask({});
    armTimer();
}

void NewsDesk::armTimer() {
    if (!autoRefresh_) return;
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(
        autoRefresh_->nextPass(now()) - std::chrono::steady_clock::now());
    // During a pass the cadence may be due already; the pass's end arms the timer again.
    const auto shortest = pass_ ? kLongestTick : std::chrono::milliseconds(0);
    timer_.start(std::clamp(wait, shortest, kLongestTick));
}

void NewsDesk::refreshAll() { ask({}); }

void NewsDesk::refreshSource(const std::string& id) { ask({.ids = {id}}); }

void NewsDesk::ask(Asked asked) {
    if (std::find(waitingPasses_.begin(), waitingPasses_.end(), asked) == waitingPasses_.end()) {
        waitingPasses_.push_back(std::move(asked));
    }
    beginWaitingPass();
}

void NewsDesk::beginWaitingPass() {
    if (pass_ || !isLoaded_ || waitingPasses_.empty()) return;
    auto next = std::move(waitingPasses_.front());
    waitingPasses_.erase(waitingPasses_.begin());
    beginPass(std::move(next));
}

void NewsDesk::cancelRefresh() {
    waitingPasses_.clear();
    if (pass_) worker_.cancel(passTicket_);
}

PassSettings NewsDesk::passSettings(PassScope scope) const {
    return {.scope = scope, .retention = std::chrono::duration<double>(defaults_.storyRetention())};
}

void NewsDesk::beginPass(Asked asked) {
    const bool isNamed = !asked.ids.empty();
    std::vector<NewsSource> sources;
    for (const auto& source : roster_.sources) {
        const bool wanted =
            isNamed ? std::find(asked.ids.begin(), asked.ids.end(), source.id) != asked.ids.end()
                    : roster_.enabled.contains(source.id);
        if (wanted) sources.push_back(source);
    }
    pass_ = Progress{.total = sources.size()};
    arrivedInPass_.clear();
    passIsWhole_ = !isNamed;
    if (autoRefresh_ && passIsWhole_) autoRefresh_->passBegan(now());
    emit refreshChanged();

    const RefreshPass::Listener listener{
        .progress =
            [this](std::size_t done, std::size_t total) {
                deliver([this, done, total] {
                    if (pass_) pass_ = Progress{.done = done, .total = total};
                    emit refreshChanged();
                });
            },
        .kept = [this](PassStep step) { deliverStep(backroom().kept(std::move(step))); }};
    const auto settings = passSettings(isNamed ? PassScope::named : PassScope::all);
    const auto run = [this, listener, settings,
                      sources = std::move(sources)](Bench& bench) -> asio::awaitable<void> {
        RefreshPass pass(bench.store, bench.engine, clock_, settings, listener);
        auto report = co_await pass.run(sources);
        deliverStep(backroom().finished());
        deliver([this, report = std::move(report)] { endPass(report); });
    };
    // Without a report there was no pass: the library could not be written.
    passTicket_ = worker_.spawn(run, failure([this] { endPass({.cancelled = true}); }));
}

void NewsDesk::endPass(const PassReport& report) {
    pass_.reset();
    if (!report.cancelled && passIsWhole_) lastPassFailed_ = report.offline;
    if (autoRefresh_ && passIsWhole_) {
        autoRefresh_->passEnded(now(), !report.cancelled && report.offline);
    }
    dropOld();
    announce(std::exchange(arrivedInPass_, {}));
    emit refreshChanged();
    emit passEnded(report);
    beginWaitingPass();
    armTimer();
}

void NewsDesk::goLive(Instant until) {
    if (!autoRefresh_) return;
    autoRefresh_->goLive(until, now());
    armTimer();
    emit refreshChanged();
}

void NewsDesk::endLive() {
    if (!autoRefresh_) return;
    autoRefresh_->endLive();
    armTimer();
    emit refreshChanged();
}

void NewsDesk::markLeft() {
    newSince_ = clock_();
    post([at = newSince_](Bench& bench) { bench.store.state().set(DeskState::kNewSince, at); });
}

// What comes from the worker.

void NewsDesk::take(DeskStep step) {
    if (step.lastRefresh) lastRefresh_ = step.lastRefresh;
    if (step.lastArrival) lastArrival_ = step.lastArrival;
    // A step that was made before the user left is no later news of it.
    if (step.newSince) newSince_ = std::max(newSince_.value_or(*step.newSince), *step.newSince);
    if (step.roster) roster_ = std::move(*step.roster);
    if (step.sourceStates) sourceStates_ = std::move(*step.sourceStates);
    if (step.roster || step.sourceStates) emit sourcesChanged();
    if (step.wire || !step.stories.empty()) takeStories(step);
    if (!step.news.empty()) {
        std::sort(step.news.begin(), step.news.end(), std::greater());
        emit storiesArrived(step.news);
        if (pass_) {
            arrivedInPass_.insert(arrivedInPass_.end(), step.news.begin(), step.news.end());
        } else {
            announce(step.news);
        }
    }
    if (step.clusters) {
        clusters_ = std::move(*step.clusters);
        emit clustersChanged();
    }
    if (step.isWholeWire && !autoRefresh_) {
        dropOld();
        autoRefresh_.emplace(std::chrono::minutes(defaults_.refreshMinutes()), lastRefresh_, now(),
                             atRandomUpTo);
        followOtherPrograms();
        emit loaded();
        beginWaitingPass();
        armTimer();
    }
}

void NewsDesk::takeStories(DeskStep& step) {
    // Stories that another program has only marked or revised are no news.
    std::erase_if(step.news, [&](auto number) { return wire_.placeOf(number).has_value(); });
    WireChange change{.isReset = true};
    if (step.wire) {
        wire_ = std::move(*step.wire);
    } else {
        change = wire_.merge(std::move(step.stories));
    }
    // The step was made before these were written.
    for (const auto& [ticket, pending] : pendingMarks_) apply(pending);
    isLoaded_ = isLoaded_ || step.isWholeWire;
    emit wireChanged(change);
}

void NewsDesk::announce(const std::vector<std::int64_t>& numbers) {
    if (!onNewStories_ || numbers.empty()) return;
    auto newestFirst = numbers;
    std::sort(newestFirst.begin(), newestFirst.end(), std::greater());
    Announcement announcement{.total = newestFirst.size()};
    for (const auto number : newestFirst) {
        if (announcement.stories.size() == Announcement::kMostOneByOne) break;
        if (const auto place = wire_.placeOf(number)) {
            announcement.stories.push_back(wire_[*place].unpacked().story);
        }
    }
    onNewStories_(announcement);
}

/// By the same rule as the library drops.
void NewsDesk::dropOld() {
    const auto settings = passSettings(PassScope::all);
    const auto cutoff =
        clock_() - std::chrono::duration_cast<Instant::duration>(settings.retention);
    const auto change = wire_.drop(firstStoryNumber(cutoff), settings.ceiling);
    if (!change.isEmpty()) emit wireChanged(change);
}

// Marks.

std::vector<std::int64_t> NewsDesk::numbersOf(const std::vector<std::string>& storyIDs) const {
    std::vector<std::int64_t> numbers;
    for (const auto& id : storyIDs) {
        if (const auto* story = wire_.find(id)) numbers.push_back(story->number());
    }
    return numbers;
}

std::vector<std::int64_t> NewsDesk::apply(const MarkChange& change) {
    return change.mark == Mark::read ? wire_.setRead(change.numbers, change.on)
                                     : wire_.setSaved(change.numbers, change.on);
}

/// The wire has it at once, the library soon; when that fails the wire goes back. Returns the
/// numbers of what changed.
std::vector<std::int64_t> NewsDesk::change(MarkChange asked) {
    asked.numbers = apply(asked);
    auto changed = asked.numbers;
    if (changed.empty()) return changed;
    emit marksChanged(changed);
    const auto ticket = ++lastMark_;
    const auto write = [this, ticket, asked, at = clock_()](Bench& bench) {
        const auto stamp = bench.store.marks().set(asked.mark, asked.numbers,
                                                   asked.on ? std::optional(at) : std::nullopt);
        backroom().noteOwnWrite(stamp);
        deliver([this, ticket] { pendingMarks_.erase(ticket); });
    };
    pendingMarks_.emplace(ticket, std::move(asked));
    post(write, [this, ticket] {
        auto pending = pendingMarks_.extract(ticket);
        pending.mapped().on = !pending.mapped().on;
        emit marksChanged(apply(pending.mapped()));
    });
    return changed;
}

void NewsDesk::setRead(const std::vector<std::string>& storyIDs, bool read) {
    const auto numbers = numbersOf(storyIDs);
    const std::set<std::int64_t> byHand(numbers.begin(), numbers.end());
    std::erase_if(lastReadBatch_, [&](auto number) { return byHand.contains(number); });
    change({.mark = Mark::read, .on = read, .numbers = numbers});
}

void NewsDesk::setSaved(const std::vector<std::string>& storyIDs, bool saved) {
    change({.mark = Mark::saved, .on = saved, .numbers = numbersOf(storyIDs)});
}

std::size_t NewsDesk::markAllRead(const std::vector<std::int64_t>& numbers) {
    auto changed = change({.mark = Mark::read, .on = true, .numbers = numbers});
    if (changed.empty()) return 0;
    lastReadBatch_ = std::move(changed);
    return lastReadBatch_.size();
}

std::size_t NewsDesk::undoMarkAllRead() {
    const auto batch = std::exchange(lastReadBatch_, {});
    change({.mark = Mark::read, .on = false, .numbers = batch});
    return batch.size();
}

// Sources.

void NewsDesk::changeRoster(std::function<void(Bench&, SourceRoster&)> change,
                            DeskWorker::Failed failed) {
    const auto job = [this, change = std::move(change)](Bench& bench) {
        try {
            change(bench, backroom().roster());
        } catch (const std::exception&) {
            backroom().roster().reload();
            throw;
        }
        deliverStep(backroom().rosterChanged());
    };
    worker_.post(job, std::move(failed));
}

void NewsDesk::setEnabled(const std::string& sourceID, bool enabled) {
    changeRoster([=](Bench&, SourceRoster& roster) { roster.setEnabled(sourceID, enabled); },
                 failure());
}

void NewsDesk::renameSource(const std::string& id, const std::string& name) {
    changeRoster([=](Bench&, SourceRoster& roster) { roster.rename(id, name); }, failure());
}

void NewsDesk::removeSource(const std::string& id) {
    changeRoster([=, this](Bench&, SourceRoster& roster) { roster.remove(id, clock_()); },
                 failure());
}

void NewsDesk::importOutlines(newsroom::Outlines outlines, Imported done) {
    const auto import = [this, outlines = std::move(outlines), done](Bench& bench,
                                                                     SourceRoster& roster) {
        auto added = applyImport(previewImport(outlines, roster), bench.store, roster);
        deliver([done, added = std::move(added)] { done(added); });
    };
    changeRoster(import, failure([done] { done({}); }));
}

void NewsDesk::checkAddress(std::string typed, AddressChecked done) {
    const auto check = [this, typed = std::move(typed),
                        done](Bench& bench) -> asio::awaitable<void> {
        SourceAdding adding(bench.store, backroom().roster(), bench.engine, clock_);
        auto checked = co_await adding.check(typed);
        deliver([done, checked = std::move(checked)] { done(checked); });
    };
    worker_.spawn(check, answering(done));
}

void NewsDesk::addSource(std::string typed, SourceAdded done) {
    const auto add = [this, typed = std::move(typed), done](Bench& bench) -> asio::awaitable<void> {
        SourceAdding adding(bench.store, backroom().roster(), bench.engine, clock_);
        auto added = co_await adding.add(typed);
        deliverStep(backroom().rosterChanged());
        deliver([done, added = std::move(added)] { done(added); });
    };
    const auto failed = [this, answer = answering(std::move(done))](const std::exception& error) {
        if (backroom_) backroom_->roster().reload();
        answer(error);
    };
    worker_.spawn(add, failed);
}

/// Whoever asked gets the sentence as the answer.
template <class Done>
DeskWorker::Failed NewsDesk::answering(Done done) {
    return [this, done = std::move(done)](const std::exception& error) {
        AddSourceError answer{.kind = AddSourceError::Kind::fetchFailed, .detail = error.what()};
        deliver([done, answer = std::move(answer)] { done(answer); });
    };
}

// Search.

void NewsDesk::search(const std::string& typed, std::size_t limit, Found done) {
    const auto turn = ++lastSearch_;
    newestSearch_ = turn;
    post([this, turn, typed, limit, done = std::move(done)](Bench& bench) {
        // Someone has typed on: the answer would come too late.
        if (newestSearch_ != turn || bench.isClosing) return;
        const StorySelection selection{
            .search = SearchText::parse(typed, SearchText::LastWord::stillTyped)};
        std::vector<std::int64_t> found;
        if (!selection.search.isEmpty() && limit > 0) {
            bench.store.search().each(selection, [&](const StoredStory& stored) {
                found.push_back(stored.number);
                return found.size() < limit;
            });
        }
        deliver([this, turn, done, found = std::move(found)] {
            if (turn == lastSearch_) done(found);
        });
    });
}

}  // namespace desk
