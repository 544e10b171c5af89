// How the desk refreshes: the timer, the passes, what it announces after them.
#include <algorithm>
#include <utility>

#include "Tarnwick_Brell/Desk/NewsDesk.h"

namespace app {

namespace asio = boost::asio;

using kit::Instant;
using kit::NewsSource;
using WorkerContext = DeskWorker::WorkerContext;

namespace {

// Often enough to notice that the computer slept, seldom enough to let it idle.
constexpr std::chrono::milliseconds kLongestTick = std::chrono::seconds(30);

}  // namespace

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
        .kept = [this](CommittedBatch step) { deliverStep(backroom().kept(std::move(step))); }};
    const auto settings = passSettings(isNamed ? PassScope::named : PassScope::all);
    const auto run = [this, listener, settings, sources = std::move(sources)](
                         WorkerContext& context) -> asio::awaitable<void> {
        RefreshPass pass(context.store, context.engine, clock_, settings, listener);
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
    const bool isClockChecked = report.clockSeemsWrong || report.droppedBefore;
    if (isClockChecked) clockSeemsWrong_ = report.clockSeemsWrong;
    dropOld(report.droppedBefore);
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

void NewsDesk::markLeft(Instant at) {
    newSince_ = at;
    post([at](WorkerContext& context) { context.store.state().set(DeskState::kNewSince, at); });
    emit newSinceChanged();
}

}  // namespace app
