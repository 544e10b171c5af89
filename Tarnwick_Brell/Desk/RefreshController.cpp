#include "Tarnwick_Brell/Desk/RefreshController.h"

#include <algorithm>
#include <random>
#include <utility>

#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "Tarnwick_Brell/Desk/DeskJobs.h"
#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Desk/RefreshPass.h"
#include "Tarnwick_Brell/Desk/SourceController.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

namespace asio = boost::asio;

using kit::Instant;
using WorkerContext = DeskWorker::WorkerContext;

namespace {

// Short enough to notice that the computer slept, long enough to let it idle.
constexpr std::chrono::milliseconds kLongestTick = std::chrono::seconds(30);

std::chrono::milliseconds randomUpTo(std::chrono::milliseconds longest) {
    std::random_device source;
    return std::chrono::milliseconds(
        std::uniform_int_distribution<std::chrono::milliseconds::rep>(0, longest.count())(source));
}

/// What is set for sources may have changed since the pass was asked for.
std::vector<kit::NewsSource> asTheyAreNow(std::vector<kit::NewsSource> sources,
                                          const SourceRegistry& registry) {
    for (auto& source : sources) {
        if (const auto* known = registry.find(source.id)) source = *known;
    }
    return sources;
}

}  // namespace

RefreshController::RefreshController(DeskJobs& jobs, const SourceController& sources,
                                     Defaults& defaults, kit::Clock clock)
    : jobs_(jobs), sources_(sources), defaults_(defaults), clock_(std::move(clock)) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &RefreshController::tick);
    connect(&defaults_, &Defaults::changed, this, [this] {
        if (cadence_) tick();
    });
}

void RefreshController::start(std::optional<Instant> lastRefresh) {
    cadence_.emplace(std::chrono::minutes(defaults_.refreshMinutes()), lastRefresh, now(),
                     randomUpTo);
    beginWaitingPass();
    armTimer();
}

Clocks RefreshController::now() const {
    return {.wall = clock_(), .steady = std::chrono::steady_clock::now()};
}

std::optional<Instant> RefreshController::liveUntil() const {
    return cadence_ ? cadence_->liveUntil(clock_()) : std::nullopt;
}

void RefreshController::tick() {
    defaults_.reload();
    cadence_->setInterval(std::chrono::minutes(defaults_.refreshMinutes()));
    if (cadence_->isDue(now()) && !pass_) request({});
    armTimer();
}

void RefreshController::armTimer() {
    if (!cadence_) return;
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(
        cadence_->nextPass(now()) - std::chrono::steady_clock::now());
    // During a pass the next one may be due already. The end of the pass arms the timer again.
    const auto shortest = pass_ ? kLongestTick : std::chrono::milliseconds(0);
    timer_.start(std::clamp(wait, shortest, kLongestTick));
}

void RefreshController::refreshAll() { request({}); }

void RefreshController::refreshSource(const std::string& id) { request({.ids = {id}}); }

void RefreshController::request(Request request) {
    if (std::find(waiting_.begin(), waiting_.end(), request) == waiting_.end()) {
        waiting_.push_back(std::move(request));
    }
    beginWaitingPass();
}

void RefreshController::beginWaitingPass() {
    if (pass_ || !cadence_ || waiting_.empty()) return;
    const auto next = std::move(waiting_.front());
    waiting_.erase(waiting_.begin());
    beginPass(next);
}

void RefreshController::cancel() {
    waiting_.clear();
    if (pass_) jobs_.worker().cancel(passJob_);
}

std::vector<kit::NewsSource> RefreshController::sourcesOf(const Request& request) const {
    std::vector<kit::NewsSource> wanted;
    for (const auto& source : sources_.sources()) {
        const bool isWanted = request.ids.empty()
                                  ? sources_.enabledIDs().contains(source.id)
                                  : std::ranges::find(request.ids, source.id) != request.ids.end();
        if (isWanted) wanted.push_back(source);
    }
    return wanted;
}

void RefreshController::beginPass(const Request& request) {
    isWholePass_ = request.ids.empty();
    auto sources = sourcesOf(request);
    pass_ = Progress{.total = sources.size()};
    if (isWholePass_) cadence_->passBegan(now());
    emit changed();

    const RefreshPass::Listener listener{
        .progress =
            [this](std::size_t done, std::size_t total) {
                jobs_.deliver([this, done, total] {
                    if (pass_) pass_ = Progress{.done = done, .total = total};
                    emit changed();
                });
            },
        .stored =
            [this](CommittedBatch batch) {
                jobs_.deliver(jobs_.updates().committed(std::move(batch)));
            }};
    const PassSettings settings{
        .scope = isWholePass_ ? PassScope::all : PassScope::named,
        .retention = std::chrono::duration<double>(defaults_.storyRetention())};
    const auto run = [this, listener, settings, sources = std::move(sources)](
                         WorkerContext& context) -> asio::awaitable<void> {
        RefreshPass pass(context.store, context.stack, clock_, settings, listener);
        auto report = co_await pass.run(asTheyAreNow(sources, jobs_.updates().registry()));
        jobs_.deliver(jobs_.updates().passEnded());
        jobs_.deliver([this, report = std::move(report)] { endPass(report); });
    };
    // Without a report there was no pass: the library could not be written.
    passJob_ =
        jobs_.worker().spawn(run, jobs_.reportFailure([this] { endPass({.cancelled = true}); }));
}

void RefreshController::endPass(const PassReport& report) {
    pass_.reset();
    if (isWholePass_) {
        if (!report.cancelled) lastPassFailed_ = report.offline;
        cadence_->passEnded(now(), !report.cancelled && report.offline);
    }
    const bool isClockChecked = report.clockSeemsWrong || report.droppedBefore;
    if (isClockChecked) clockSeemsWrong_ = report.clockSeemsWrong;
    emit passEnded(report);
    if (!report.cancelled && std::exchange(wasOffline_, report.offline) && !report.offline) {
        emit networkReturned();
    }
    beginWaitingPass();
    armTimer();
}

void RefreshController::goLive(Instant until) {
    if (!cadence_) return;
    cadence_->goLive(until, now());
    armTimer();
    emit changed();
}

void RefreshController::goLiveDuring(const std::vector<kit::AppleCalendarEvent>& events) {
    if (!cadence_) return;
    const auto now = clock_();
    for (const auto& event : events) {
        if (!event.isOn(now, RefreshCadence::kLongestLive)) continue;
        if (liveEvents_.insert(event.id).second) {
            goLive(event.starts + RefreshCadence::kLongestLive);
        }
    }
}

void RefreshController::endLive() {
    if (!cadence_) return;
    cadence_->endLive();
    armTimer();
    emit changed();
}

}  // namespace app
