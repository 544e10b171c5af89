#include "Tarnwick_Brell/Desk/NewsDesk.h"

#include <algorithm>
#include <limits>
#include <random>
#include <utility>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/Tables/StoryNumber.h"

namespace app {

using kit::Instant;
using WorkerContext = DeskWorker::WorkerContext;

namespace {

constexpr std::size_t kFirstView = 500;
constexpr std::chrono::milliseconds kForeignLook = std::chrono::seconds(2);

std::chrono::milliseconds atRandomUpTo(std::chrono::milliseconds longest) {
    std::random_device source;
    return std::chrono::milliseconds(
        std::uniform_int_distribution<std::chrono::milliseconds::rep>(0, longest.count())(source));
}

}  // namespace

NewsDesk::NewsDesk(const std::filesystem::path& library, kit::CurlTransport::Options network,
                   Defaults& defaults, kit::Clock clock)
    : defaults_(defaults), clock_(std::move(clock)), worker_(library, std::move(network), clock_) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &NewsDesk::tick);
}

NewsDesk::~NewsDesk() = default;

void NewsDesk::deliver(std::function<void()> message) { mailbox_.send(std::move(message)); }

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
void NewsDesk::deliverStep(DeskUpdate step) {
    deliver(
        [this, step = std::make_shared<DeskUpdate>(std::move(step))] { take(std::move(*step)); });
}

void NewsDesk::start() {
    const auto load = [this](WorkerContext& context) {
        backroom_ = std::make_unique<DeskUpdateBuilder>(context.store, clock_, context.isClosing);
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
    const auto lookAround = [this](WorkerContext&) {
        if (auto step = backroom().foreignChanges()) {
            deliverStep(std::move(*step));
            deliver([this] { emit libraryChangedElsewhere(); });
        }
    };
    worker_.repeat(kForeignLook, lookAround, failure());
}

DeskUpdateBuilder& NewsDesk::backroom() {
    if (backroom_) return *backroom_;
    throw StoreError(StoreError::Reason::unreadable, "The library has not been read.");
}

Clocks NewsDesk::now() const {
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

/// A moment that has not come was noted by a clock that was wrong.
std::optional<Instant> NewsDesk::newSince() const {
    return newSince_ && *newSince_ <= clock_() ? newSince_ : std::nullopt;
}

std::optional<Instant> NewsDesk::liveUntil() const {
    return autoRefresh_ ? autoRefresh_->liveUntil(clock_()) : std::nullopt;
}

void NewsDesk::onNewStories(std::function<void(const std::vector<kit::Story>&)> callback) {
    onNewStories_ = std::move(callback);
}

void NewsDesk::take(DeskUpdate step) {
    if (step.lastRefresh) lastRefresh_ = step.lastRefresh;
    if (step.lastArrival) lastArrival_ = step.lastArrival;
    if (step.clockConfirmed) clockConfirmed_ = step.clockConfirmed;
    // A step that was made before the user left is no later news of it.
    const bool isLater = step.newSince <= clock_() && step.newSince > newSince();
    if (isLater) newSince_ = step.newSince;
    // A step that was made before a mark was written does not know of it.
    if (step.canUndo && pendingMarks_.empty()) setCanUndo(*step.canUndo);
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
        dropOldAtStart();
        autoRefresh_.emplace(std::chrono::minutes(defaults_.refreshMinutes()), lastRefresh_, now(),
                             atRandomUpTo);
        followOtherPrograms();
        emit loaded();
        beginWaitingPass();
        armTimer();
    }
}

void NewsDesk::takeStories(DeskUpdate& step) {
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

/// Before any server has confirmed the clock, it is believed up to the last time that one did.
void NewsDesk::dropOldAtStart() {
    if (!clockConfirmed_) return dropOld(std::nullopt);
    const auto retention =
        std::chrono::duration_cast<Instant::duration>(passSettings(PassScope::all).retention);
    dropOld(std::min(clock_(), *clockConfirmed_) - retention);
}

/// What the library has dropped. Without a moment nothing goes for its age.
void NewsDesk::dropOld(std::optional<Instant> publishedBefore) {
    const auto lowest = publishedBefore ? firstStoryNumber(*publishedBefore)
                                        : std::numeric_limits<std::int64_t>::min();
    const auto change = wire_.drop(lowest, kStoryCeiling);
    if (!change.isEmpty()) emit wireChanged(change);
}

}  // namespace app
